#include "Manager/Library/KeptPicture.h"

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

namespace quorvane {

Result<KeptPicture> keepPicture(const NewPicture &picture)
{
    const Result<QString> path = ImageStore::saveImage(picture.name, picture.bytes);
    if (!path) {
        return path.failure();
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
    if (!picture.original.isEmpty() && ImageStore::isInLibrary(picture.original)) {
        note(ImageStore::saveVariantLink(picture.original, *path));
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
