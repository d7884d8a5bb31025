#include "Faults/FaultScenario.h"

#include "Support/Files.h"

#include <QImage>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

bool isPicture(const QString &path)
{
    return !path.isEmpty() && !QImage(path).isNull();
}

/// A picture with its prompt.
bool isKept(const FaultHome &home, const QString &path, const QString &prompt)
{
    const std::map<QString, QString> prompts = home.prompts();
    const auto entry = prompts.find(QFileInfo(path).fileName());
    return isPicture(path) && entry != prompts.end() && entry->second == prompt;
}

bool isGenerated(const FaultHome &home, const QJsonObject &result)
{
    return isKept(home, result.value("file"_L1).toString(), u"a tower"_s) &&
           home.setting(u"lastPrompt"_s) == u"a tower"_s &&
           home.setting(u"currentWallpaperPath"_s) == result.value("file"_L1).toString();
}

bool isGeneratedAndEnlarged(const FaultHome &home, const QJsonObject &result)
{
    const QString original = result.value("original"_L1).toString();
    // Pictures of the same second may share a name; then there is one picture and no link.
    const bool isOne = original.isEmpty() || original == result.value("file"_L1).toString();
    const std::map<QString, QString> links = home.links();
    const auto link = links.find(QFileInfo(original).fileName());
    return isGenerated(home, result) &&
           (isOne || (isKept(home, original, u"a tower"_s) && link != links.end() &&
                      link->second == QFileInfo(result.value("file"_L1).toString()).fileName()));
}

const QStringList kGenerate{u"generate"_s, u"--prompt"_s, u"a tower"_s};
const FaultHome::Meant kGenerating{.settings = {u"lastPrompt"_s}};

} // namespace

std::vector<Scenario> scenarios(Of which)
{
    const std::pair fourK{u"fourKEnabled"_s, u"true"_s};
    const std::pair local{u"upscaleMethod"_s, u"local"_s};
    const auto by = [](const char *id) { return std::pair{u"providerOverride"_s, QString::fromLatin1(id)}; };
    std::vector<Scenario> all{
        {"generateGemini", kGenerate, {}, kGenerating, {by("gemini")}, isGenerated},
        {"generateGrok", kGenerate, {}, kGenerating, {by("grok")}, isGenerated},
        {"generateOpenAI", kGenerate, {}, kGenerating, {by("openai")}, isGenerated},
        {"generateAndEnlargeByService", kGenerate, {}, kGenerating, {by("grok"), fourK}, isGeneratedAndEnlarged},
        {"generateAndEnlargeHere", kGenerate, {}, kGenerating, {by("grok"), fourK, local}, isGeneratedAndEnlarged},
        {"upscaleByService",
         {u"upscale"_s, u"a.png"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &result) {
             return isKept(home, result.value("file"_L1).toString(), u"a lake"_s) && home.links().contains(u"a.png"_s);
         }},
        {"upscaleHere",
         {u"upscale"_s, u"a.png"_s},
         {},
         {},
         {local},
         [](const FaultHome &home, const QJsonObject &result) {
             return isKept(home, result.value("file"_L1).toString(), u"a lake"_s) && home.links().contains(u"a.png"_s);
         }},
        {"set",
         {u"set"_s, u"a.png"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) {
             return home.setting(u"currentWallpaperPath"_s) == home.library() + u"/a.png"_s;
         }},
        {"favorite",
         {u"favorite"_s, u"a.png"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.favorites().contains(u"a.png"_s); }},
        {"noFavorite",
         {u"favorite"_s, u"b.png"_s},
         {},
         {.favorites = {u"b.png"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return !home.favorites().contains(u"b.png"_s); }},
        {"delete",
         {u"delete"_s, u"b.png"_s},
         {},
         {.pictures = {u"b.png"_s, u"b4k.png"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) {
             return !QFile::exists(home.library() + u"/b.png"_s) && !QFile::exists(home.library() + u"/b4k.png"_s) &&
                    !home.prompts().contains(u"b.png"_s) && home.links().empty() && home.favorites().isEmpty();
         }},
        {"keySet",
         {u"key"_s, u"set"_s, u"grok"_s},
         "NEW KEY\n",
         {.keys = {u"grok"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.keys().at(u"grok"_s) == u"NEW KEY"_s; }},
        {"keyDelete",
         {u"key"_s, u"delete"_s, u"grok"_s},
         {},
         {.keys = {u"grok"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return !home.keys().contains(u"grok"_s); }},
        {"settings",
         {u"settings"_s, u"intervalMinutes"_s, u"120"_s},
         {},
         {.settings = {u"intervalMinutes"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.setting(u"intervalMinutes"_s) == u"120"_s; }},
        {"settingsUnset",
         {u"settings"_s, u"--unset"_s, u"intervalMinutes"_s},
         {},
         {.settings = {u"intervalMinutes"_s}},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.setting(u"intervalMinutes"_s).isEmpty(); }},
        {"autoOn",
         {u"auto"_s, u"on"_s},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) { return home.setting(u"autoEnabled"_s) == u"true"_s; }},
        {"modelInstall",
         {u"model"_s, u"install"_s, QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx")},
         {},
         {},
         {},
         [](const FaultHome &home, const QJsonObject &) {
             return contentOf(home.path() + u"/.local/share/quorvane/models/RealESRGAN.onnx"_s) ==
                    contentOf(QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx"));
         }},
    };
    if (which == Of::LargePictures) {
        std::erase_if(all, [](const Scenario &scenario) {
            return scenario.arguments.first() != "generate"_L1 || scenario.settings.size() == 0;
        });
    }
    return all;
}

} // namespace quorvane
