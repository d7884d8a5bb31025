#include "Faults/FaultHome.h"

#include "Support/Files.h"

#include <QDirIterator>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const std::map<QString, QString> kPrompts{
    {u"a.png"_s, u"a lake"_s}, {u"b.png"_s, u"a wood"_s}, {u"b4k.png"_s, u"a wood"_s}};
const std::map<QString, QString> kLinks{{u"b.png"_s, u"b4k.png"_s}};
const QStringList kFavorites{u"b.png"_s};
const std::map<QString, QString> kKeys{
    {u"gemini"_s, u"KEY OF GEMINI"_s}, {u"grok"_s, u"KEY OF GROK"_s}, {u"openai"_s, u"KEY OF OPENAI"_s}};
const std::map<QString, QString> kSettings{{u"lastPrompt"_s, u"a lake"_s},
                                           {u"intervalMinutes"_s, u"60"_s},
                                           {u"selectedModel_grok"_s, u"grok-imagine-image-pro"_s},
                                           {u"fromAnotherVersion"_s, u"kept"_s}};

QByteArray json(const std::map<QString, QString> &map)
{
    QJsonObject object;
    for (const auto &[name, text] : map) {
        object.insert(name, text);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::map<QString, QString> mapIn(const QString &file)
{
    std::map<QString, QString> map;
    const QJsonObject object = QJsonDocument::fromJson(contentOf(file)).object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        map.emplace(entry.key(), entry.value().toString());
    }
    return map;
}

QStringList listIn(const QString &file)
{
    QStringList list;
    const QJsonArray array = QJsonDocument::fromJson(contentOf(file)).array();
    for (const QJsonValue name : array) {
        list.append(name.toString());
    }
    return list;
}

QString settingIn(const QString &file, const QString &name)
{
    return QSettings(file, QSettings::IniFormat).value(name).toString();
}

} // namespace

FaultHome::FaultHome(QString folder, const std::map<QString, QString> &settings)
    : m_path(std::move(folder))
    , m_settings(settings)
{
    m_settings.insert(kSettings.begin(), kSettings.end());
    for (const QString &name : {u"a.png"_s, u"b.png"_s, u"b4k.png"_s}) {
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(name.startsWith('a'_L1) ? Qt::red : Qt::green);
        QDir().mkpath(library());
        EXPECT_TRUE(picture.save(library() + '/'_L1 + name));
        m_pictures.emplace(name, contentOf(library() + '/'_L1 + name));
    }
    EXPECT_TRUE(putFile(library() + u"/prompts.json"_s, json(kPrompts)));
    EXPECT_TRUE(putFile(library() + u"/variants.json"_s, json(kLinks)));
    EXPECT_TRUE(putFile(library() + u"/favorites.json"_s, R"(["b.png"])"));
    EXPECT_TRUE(putFile(keyFile(), json(kKeys)));
    EXPECT_TRUE(QFile::setPermissions(keyFile(), QFile::ReadOwner | QFile::WriteOwner));
    QByteArray text = "[General]\n";
    for (const auto &[name, value] : m_settings) {
        text += name.toUtf8() + '=' + value.toUtf8() + '\n';
    }
    EXPECT_TRUE(putFile(settingsFile(), text));
}

QString FaultHome::library() const
{
    return m_path + u"/Pictures/Quorvane"_s;
}

QString FaultHome::keyFile() const
{
    return m_path + u"/Library/Application Support/Quorvane/keys.json"_s;
}

QString FaultHome::settingsFile() const
{
    return m_path + u"/.config/Quorvane/Quorvane.conf"_s;
}

QStringList FaultHome::lost(const Meant &meant) const
{
    QStringList lines;
    const auto miss = [&lines](const char *what, const QString &name) { lines.append(QLatin1String(what) + name); };

    for (const auto &[name, content] : m_pictures) {
        if (!meant.pictures.contains(name) && contentOf(library() + '/'_L1 + name) != content) {
            miss("picture ", name);
        }
    }
    for (const auto &[name, text] : kPrompts) {
        if (!meant.pictures.contains(name) && !isKept(library() + u"/prompts.json"_s, name, text)) {
            miss("prompt of ", name);
        }
    }
    for (const auto &[original, copy] : kLinks) {
        if (!meant.pictures.contains(original) && !isKept(library() + u"/variants.json"_s, original, copy)) {
            miss("link of ", original);
        }
    }
    for (const QString &name : kFavorites) {
        bool found = meant.pictures.contains(name) || meant.favorites.contains(name);
        for (const QString &version : versionsOf(library() + u"/favorites.json"_s)) {
            found = found || listIn(version).contains(name);
        }
        if (!found) {
            miss("favourite ", name);
        }
    }
    for (const auto &[id, key] : kKeys) {
        if (!meant.keys.contains(id) && !keepsKey(id, key)) {
            miss("key of ", id);
        }
    }
    for (const auto &[name, value] : m_settings) {
        bool found = meant.settings.contains(name);
        for (const QString &version : versionsOf(settingsFile())) {
            found = found || settingIn(version, name) == value;
        }
        if (!found) {
            miss("setting ", name);
        }
    }
    return lines;
}

QStringList FaultHome::temporaries() const
{
    QStringList found;
    QDirIterator entries(m_path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString entry = entries.next();
        if (entry.endsWith(".quorvane-tmp"_L1) || entries.fileName().contains(".XXXXXX"_L1)) {
            found.append(entry);
        }
    }
    return found;
}

QStringList FaultHome::openedKeys() const
{
    QStringList found;
    const QFileInfoList entries =
        QFileInfo(keyFile()).dir().entryInfoList({u"*keys.json*"_s}, QDir::Files | QDir::Hidden);
    for (const QFileInfo &entry : entries) {
        if ((entry.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther)) !=
            0) {
            found.append(entry.filePath());
        }
    }
    return found;
}

std::map<QString, QString> FaultHome::prompts() const
{
    return mapIn(library() + u"/prompts.json"_s);
}

std::map<QString, QString> FaultHome::links() const
{
    return mapIn(library() + u"/variants.json"_s);
}

QStringList FaultHome::favorites() const
{
    return listIn(library() + u"/favorites.json"_s);
}

std::map<QString, QString> FaultHome::keys() const
{
    return mapIn(keyFile());
}

bool FaultHome::keepsKey(const QString &id, const QString &key) const
{
    return isKept(keyFile(), id, key);
}

QString FaultHome::setting(const QString &name) const
{
    return settingIn(settingsFile(), name);
}

bool FaultHome::isKept(const QString &file, const QString &name, const QString &text) const
{
    const QStringList versions = versionsOf(file);
    return std::any_of(versions.begin(), versions.end(), [&](const QString &version) {
        const std::map<QString, QString> map = mapIn(version);
        const auto entry = map.find(name);
        return entry != map.end() && entry->second == text;
    });
}

QStringList FaultHome::versionsOf(const QString &file) const
{
    const QFileInfo info(file);
    QStringList versions{file};
    const QStringList aside =
        info.dir().entryList({'.'_L1 + info.fileName() + u".unreadable-*"_s}, QDir::Files | QDir::Hidden);
    for (const QString &name : aside) {
        versions.append(info.path() + '/'_L1 + name);
    }
    return versions;
}

} // namespace quorvane
