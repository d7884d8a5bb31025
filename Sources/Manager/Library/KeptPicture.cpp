#include "Manager/Library/KeptPicture.h"

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

namespace quorvane {

std::optional<KeptPicture> keepPicture(const NewPicture &picture)
{
    const std::optional<QString> path = ImageStore::saveImage(picture.name, picture.bytes);
    if (!path) {
        return std::nullopt;
    }
    KeptPicture kept{*path, {}};
    const auto note = [&kept](const Result<> &result) {
        if (!result) {
            kept.problems.append(result.failure().words);
        }
    };
    if (picture.prompt) {
        note(ImageStore::savePrompt(*picture.prompt, *path));
    }
    // Two pictures of one second share a name: the later one has then taken the original's place, and a picture that
    // counts as the copy of itself would be hidden behind itself.
    const QString &original = picture.original;
    const bool isCopy = !original.isEmpty() && imageName(original) != picture.name && ImageStore::isInLibrary(original);
    if (isCopy) {
        note(ImageStore::saveVariantLink(original, *path));
    }
    return kept;
}

std::optional<QString> recordedPrompt(const QString &image)
{
    if (!ImageStore::isInLibrary(image)) {
        return std::nullopt; // Whatever the library knows of a namesake.
    }
    const TextMap prompts = readTextMap(ImageStore::promptsPath());
    const auto prompt = prompts.find(imageName(image));
    return prompt != prompts.end() ? std::optional(prompt->second) : std::nullopt;
}

} // namespace quorvane
