#include "Platform/Desktops/Protocols/PlasmaScript.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quorvane::PlasmaScript {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(PlasmaScript)
};

/// The plug-in that shows one picture.
const QString kPlugin = u"org.kde.image"_s;

// The older engine of Plasma 5 knows less of the language, so this is written plainly.
const QString kReport = uR"(
var report = { screenCount: screenCount, desktops: [] };
desktops().forEach(function (desktop) {
    desktop.currentConfigGroup = ["Wallpaper", desktop.wallpaperPlugin, "General"];
    report.desktops.push({ screen: desktop.screen, plugin: desktop.wallpaperPlugin,
                           image: String(desktop.readConfig("Image", "")) });
});
print(JSON.stringify(report));
)"_s;

const QString kSet = uR"(
desktops().forEach(function (desktop) {
    if (desktop.screen < 0) {
        return;
    }
    desktop.wallpaperPlugin = wanted.plugin;
    desktop.currentConfigGroup = ["Wallpaper", wanted.plugin, "General"];
    desktop.writeConfig("Image", wanted.image);
    desktop.writeConfig("FillMode", wanted.fillMode);
});
)"_s;

/// As QML's Image names it: keeps the shape, fills, and cuts what is over.
constexpr int kPreserveAspectCrop = 2;

} // namespace

int Report::visible() const
{
    QSet<int> screens;
    for (const Desktop &desktop : desktops) {
        if (desktop.screen >= 0) {
            screens.insert(desktop.screen);
        }
    }
    return static_cast<int>(screens.size());
}

QStringList Report::files() const
{
    QStringList files;
    for (const Desktop &desktop : desktops) {
        const QUrl url(desktop.image);
        files.append(url.isLocalFile() ? url.toLocalFile() : desktop.image);
    }
    return files;
}

Result<> Report::isEverywhere(const QString &imageUrl) const
{
    for (const Desktop &desktop : desktops) {
        if (desktop.screen >= 0 && (desktop.plugin != kPlugin || desktop.image != imageUrl)) {
            return Failure{Tr::tr("Plasma did not take the picture for screen %1").arg(desktop.screen)};
        }
    }
    if (visible() < std::max(1, screenCount)) {
        return Failure{Tr::tr("Plasma has a desktop on %1 of its %2 screens").arg(visible()).arg(screenCount)};
    }
    return kDone;
}

QString reading()
{
    return kReport;
}

QString setting(const QString &imageUrl)
{
    const QJsonObject wanted{{u"plugin"_s, kPlugin}, {u"image"_s, imageUrl}, {u"fillMode"_s, kPreserveAspectCrop}};
    return u"var wanted = "_s + QString::fromUtf8(QJsonDocument(wanted).toJson(QJsonDocument::Compact)) + ';'_L1 +
           kSet + kReport;
}

std::optional<Report> reportOf(const QString &printed)
{
    const QJsonObject object = QJsonDocument::fromJson(printed.toUtf8()).object();
    if (!object.value("desktops"_L1).isArray()) {
        return std::nullopt;
    }
    Report report;
    report.screenCount = object.value("screenCount"_L1).toInt();
    const QJsonArray desktops = object.value("desktops"_L1).toArray();
    for (const QJsonValue value : desktops) {
        const QJsonObject desktop = value.toObject();
        report.desktops.append({desktop.value("screen"_L1).toInt(-1), desktop.value("plugin"_L1).toString(),
                                desktop.value("image"_L1).toString()});
    }
    return report;
}

QString urlOf(const QString &path)
{
    return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded));
}

} // namespace quorvane::PlasmaScript
