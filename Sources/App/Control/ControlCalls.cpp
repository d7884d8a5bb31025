#include "App/Control/ControlCalls.h"

#include <QDBusArgument>
#include <QVariantMap>

#include <algorithm>
#include <array>

namespace quorvane::Control {

namespace {

using Verb = CommandLine::Verb;

/// A method, and the words of the command line before its arguments.
struct Method
{
    QLatin1String name;
    Verb verb;
    QLatin1String action; ///< The first argument of the command line, for example "set" of "key set"; or empty.
    int arguments;        ///< How many texts it takes.
};

constexpr std::array kMethods{
    Method{QLatin1String("Upscale"), Verb::Upscale, {}, 1},
    Method{QLatin1String("Set"), Verb::Set, {}, 1},
    Method{QLatin1String("Favorite"), Verb::Favorite, {}, 1},
    Method{QLatin1String("Delete"), Verb::Delete, {}, 1},
    Method{QLatin1String("Settings"), Verb::Settings, {}, 0},
    Method{QLatin1String("Setting"), Verb::Settings, {}, 1},
    Method{QLatin1String("SetSetting"), Verb::Settings, {}, 2},
    Method{QLatin1String("ListKeys"), Verb::Key, QLatin1String("list"), 0},
    Method{QLatin1String("DeleteKey"), Verb::Key, QLatin1String("delete"), 1},
    Method{QLatin1String("History"), Verb::History, {}, 0},
    Method{QLatin1String("Albums"), Verb::Albums, {}, 0},
    Method{QLatin1String("Status"), Verb::Status, {}, 0},
    Method{QLatin1String("Model"), Verb::Model, {}, 0},
    Method{QLatin1String("InstallModel"), Verb::Model, QLatin1String("install"), 1},
    Method{QLatin1String("Quit"), Verb::Quit, {}, 0},
};

// Methods whose arguments are more than texts in a row.
const QLatin1String kGenerate("Generate");
const QLatin1String kAuto("Auto");
const QLatin1String kAutostart("Autostart");
const QLatin1String kUnsetSetting("UnsetSetting");
const QLatin1String kSetKey("SetKey");
const QLatin1String kPrompt("prompt");

bool areTexts(const QVariantList &arguments, qsizetype count)
{
    return arguments.size() == count && std::all_of(arguments.begin(), arguments.end(), [](const QVariant &each) {
               return each.typeId() == QMetaType::QString;
           });
}

QStringList texts(const QVariantList &arguments)
{
    QStringList result;
    for (const QVariant &argument : arguments) {
        result.append(argument.toString());
    }
    return result;
}

/// The options of a call, from the wire or from this process.
std::optional<QVariantMap> optionsFrom(const QVariant &argument)
{
    if (argument.typeId() == QMetaType::QVariantMap) {
        return argument.toMap();
    }
    if (argument.userType() != qMetaTypeId<QDBusArgument>()) {
        return std::nullopt;
    }
    const auto wire = argument.value<QDBusArgument>();
    return wire.currentSignature() == QLatin1String("a{sv}") ? std::optional(qdbus_cast<QVariantMap>(wire))
                                                             : std::nullopt;
}

std::optional<CommandLine> generateFrom(const QVariantList &arguments)
{
    const auto options = arguments.size() == 1 ? optionsFrom(arguments.first()) : std::nullopt;
    if (!options) {
        return std::nullopt;
    }
    CommandLine line;
    line.verb = Verb::Generate;
    const QVariant prompt = options->value(kPrompt);
    if (prompt.isValid() && prompt.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    if (prompt.isValid()) {
        line.prompt = prompt.toString();
    }
    return line;
}

/// As the command line would read it, with all its tests.
std::optional<CommandLine> parsed(QStringList words, const QStringList &arguments)
{
    if (!arguments.isEmpty()) {
        words.append(QStringLiteral("--"));
    }
    const auto line = parseCommandLine(words + arguments);
    return std::holds_alternative<CommandLine>(line) ? std::optional(std::get<CommandLine>(line)) : std::nullopt;
}

QString word(Verb verb)
{
    switch (verb) {
    case Verb::Upscale:
        return QStringLiteral("upscale");
    case Verb::Set:
        return QStringLiteral("set");
    case Verb::Favorite:
        return QStringLiteral("favorite");
    case Verb::Delete:
        return QStringLiteral("delete");
    case Verb::Settings:
        return QStringLiteral("settings");
    case Verb::Key:
        return QStringLiteral("key");
    case Verb::History:
        return QStringLiteral("history");
    case Verb::Albums:
        return QStringLiteral("albums");
    case Verb::Status:
        return QStringLiteral("status");
    case Verb::Model:
        return QStringLiteral("model");
    default:
        return QStringLiteral("quit");
    }
}

} // namespace

QString busName()
{
    return QStringLiteral("app.quorvane.Quorvane");
}

QString objectPath()
{
    return QStringLiteral("/app/quorvane/Quorvane");
}

QString interfaceName()
{
    return QStringLiteral("app.quorvane.Quorvane1");
}

QString applicationInterface()
{
    return QStringLiteral("org.freedesktop.Application");
}

QString failedError()
{
    return QStringLiteral("app.quorvane.Error.Failed");
}

QString wrongArgumentsError()
{
    return QStringLiteral("app.quorvane.Error.WrongArguments");
}

QString introspectionXml()
{
    QString xml = QStringLiteral("<interface name=\"%1\">").arg(interfaceName());
    const auto method = [&xml](const QString &name, const QStringList &types) {
        xml += QStringLiteral("<method name=\"%1\">").arg(name);
        for (const QString &type : types) {
            xml += QStringLiteral("<arg type=\"%1\" direction=\"in\"/>").arg(type);
        }
        // What the command prints with --json.
        xml += QStringLiteral("<arg name=\"json\" type=\"s\" direction=\"out\"/></method>");
    };
    const QString text = QStringLiteral("s");
    for (const Method &each : kMethods) {
        method(each.name, QStringList(each.arguments, text));
    }
    method(kGenerate, {QStringLiteral("a{sv}")});
    method(kAuto, {QStringLiteral("b")});
    method(kAutostart, {QStringLiteral("b")});
    method(kUnsetSetting, {text});
    method(kSetKey, {text, text});
    for (const auto &[name, type] : {std::pair("Status", "s"), std::pair("IsError", "b"), std::pair("IsLoading", "b"),
                                     std::pair("Progress", "a{sv}"), std::pair("AutoEnabled", "b"),
                                     std::pair("NextFireDate", "s"), std::pair("CurrentWallpaper", "s")}) {
        xml += QStringLiteral("<property name=\"%1\" type=\"%2\" access=\"read\"/>")
                   .arg(QLatin1String(name), QLatin1String(type));
    }
    xml += QStringLiteral(
               "</interface><interface name=\"%1\">"
               "<method name=\"Activate\"><arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method>"
               "<method name=\"Open\"><arg name=\"uris\" type=\"as\" direction=\"in\"/>"
               "<arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method>"
               "<method name=\"ActivateAction\"><arg name=\"action_name\" type=\"s\" direction=\"in\"/>"
               "<arg name=\"parameter\" type=\"av\" direction=\"in\"/>"
               "<arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method></interface>")
               .arg(applicationInterface());
    return xml;
}

std::optional<Call> callFor(const CommandLine &line)
{
    QVariantList arguments;
    for (const QString &argument : line.arguments) {
        arguments.append(argument);
    }
    switch (line.verb) {
    case Verb::Generate: {
        const QVariantMap options = line.prompt ? QVariantMap{{QString(kPrompt), *line.prompt}} : QVariantMap();
        return Call{kGenerate, {options}};
    }
    case Verb::Auto:
        return Call{kAuto, {line.arguments.first() == QLatin1String("on")}};
    case Verb::Settings:
        if (line.unset) {
            return Call{kUnsetSetting, arguments};
        }
        break;
    case Verb::Key:
        if (line.arguments.first() == QLatin1String("set")) {
            return Call{kSetKey, {line.arguments.at(1), line.secret}};
        }
        arguments.removeFirst();
        break;
    case Verb::History:
    case Verb::Albums:
    case Verb::Autostart:
    case Verb::Model:
        return std::nullopt; // Files tell it to any process, or are changed by it.
    default:
        break;
    }
    for (const Method &each : kMethods) {
        const bool hasAction = each.action.isEmpty() || each.action == line.arguments.value(0);
        if (each.verb == line.verb && hasAction && each.arguments == arguments.size()) {
            return Call{each.name, arguments};
        }
    }
    return std::nullopt;
}

std::optional<CommandLine> lineFrom(const Call &call)
{
    const QVariantList &arguments = call.arguments;
    if (call.method == kGenerate) {
        return generateFrom(arguments);
    }
    const bool isSwitch = call.method == kAuto || call.method == kAutostart;
    if (isSwitch && arguments.size() == 1 && arguments.first().typeId() == QMetaType::Bool) {
        return parsed({call.method == kAuto ? QStringLiteral("auto") : QStringLiteral("autostart")},
                      {arguments.first().toBool() ? QStringLiteral("on") : QStringLiteral("off")});
    }
    if (call.method == kUnsetSetting && areTexts(arguments, 1)) {
        return parsed({QStringLiteral("settings"), QStringLiteral("--unset")}, texts(arguments));
    }
    if (call.method == kSetKey && areTexts(arguments, 2)) {
        auto line = parsed({QStringLiteral("key"), QStringLiteral("set")}, {arguments.first().toString()});
        if (line) {
            line->secret = arguments.last().toString();
        }
        return line;
    }
    for (const Method &each : kMethods) {
        if (each.name == call.method && areTexts(arguments, each.arguments)) {
            QStringList words{word(each.verb)};
            if (!each.action.isEmpty()) {
                words.append(each.action);
            }
            return parsed(words, texts(arguments));
        }
    }
    return std::nullopt;
}

} // namespace quorvane::Control
