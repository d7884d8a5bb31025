#include "App/Control/ControlCalls.h"

#include <QDBusArgument>
#include <QVariantMap>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

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
    Method{"Upscale"_L1, Verb::Upscale, {}, 1},
    Method{"Set"_L1, Verb::Set, {}, 1},
    Method{"Favorite"_L1, Verb::Favorite, {}, 1},
    Method{"Delete"_L1, Verb::Delete, {}, 1},
    Method{"Settings"_L1, Verb::Settings, {}, 0},
    Method{"Setting"_L1, Verb::Settings, {}, 1},
    Method{"SetSetting"_L1, Verb::Settings, {}, 2},
    Method{"ListKeys"_L1, Verb::Key, "list"_L1, 0},
    Method{"DeleteKey"_L1, Verb::Key, "delete"_L1, 1},
    Method{"History"_L1, Verb::History, {}, 0},
    Method{"Albums"_L1, Verb::Albums, {}, 0},
    Method{"Status"_L1, Verb::Status, {}, 0},
    Method{"Model"_L1, Verb::Model, {}, 0},
    Method{"InstallModel"_L1, Verb::Model, "install"_L1, 1},
    Method{"Quit"_L1, Verb::Quit, {}, 0},
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
    return wire.currentSignature() == "a{sv}"_L1 ? std::optional(qdbus_cast<QVariantMap>(wire)) : std::nullopt;
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
        words.append(u"--"_s);
    }
    const auto line = parseCommandLine(words + arguments);
    return std::holds_alternative<CommandLine>(line) ? std::optional(std::get<CommandLine>(line)) : std::nullopt;
}

QString word(Verb verb)
{
    switch (verb) {
    case Verb::Upscale:
        return u"upscale"_s;
    case Verb::Set:
        return u"set"_s;
    case Verb::Favorite:
        return u"favorite"_s;
    case Verb::Delete:
        return u"delete"_s;
    case Verb::Settings:
        return u"settings"_s;
    case Verb::Key:
        return u"key"_s;
    case Verb::History:
        return u"history"_s;
    case Verb::Albums:
        return u"albums"_s;
    case Verb::Status:
        return u"status"_s;
    case Verb::Model:
        return u"model"_s;
    default:
        return u"quit"_s;
    }
}

} // namespace

QString busName()
{
    return u"app.quorvane.Quorvane"_s;
}

QString objectPath()
{
    return u"/app/quorvane/Quorvane"_s;
}

QString interfaceName()
{
    return u"app.quorvane.Quorvane1"_s;
}

QString applicationInterface()
{
    return u"org.freedesktop.Application"_s;
}

QString failedError()
{
    return u"app.quorvane.Error.Failed"_s;
}

QString wrongArgumentsError()
{
    return u"app.quorvane.Error.WrongArguments"_s;
}

QString introspectionXml()
{
    QString xml = u"<interface name=\"%1\">"_s.arg(interfaceName());
    const auto method = [&xml](const QString &name, const QStringList &types) {
        xml += u"<method name=\"%1\">"_s.arg(name);
        for (const QString &type : types) {
            xml += u"<arg type=\"%1\" direction=\"in\"/>"_s.arg(type);
        }
        // What the command prints with --json.
        xml += u"<arg name=\"json\" type=\"s\" direction=\"out\"/></method>"_s;
    };
    const QString text = u"s"_s;
    for (const Method &each : kMethods) {
        method(each.name, QStringList(each.arguments, text));
    }
    method(kGenerate, {u"a{sv}"_s});
    method(kAuto, {u"b"_s});
    method(kAutostart, {u"b"_s});
    method(kUnsetSetting, {text});
    method(kSetKey, {text, text});
    for (const auto &[name, type] : {std::pair("Status", "s"), std::pair("IsError", "b"), std::pair("IsLoading", "b"),
                                     std::pair("Progress", "a{sv}"), std::pair("AutoEnabled", "b"),
                                     std::pair("NextFireDate", "s"), std::pair("CurrentWallpaper", "s")}) {
        xml += u"<property name=\"%1\" type=\"%2\" access=\"read\"/>"_s.arg(QLatin1String(name), QLatin1String(type));
    }
    xml += u"</interface><interface name=\"%1\">"
           "<method name=\"Activate\"><arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method>"
           "<method name=\"Open\"><arg name=\"uris\" type=\"as\" direction=\"in\"/>"
           "<arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method>"
           "<method name=\"ActivateAction\"><arg name=\"action_name\" type=\"s\" direction=\"in\"/>"
           "<arg name=\"parameter\" type=\"av\" direction=\"in\"/>"
           "<arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method></interface>"_s.arg(
               applicationInterface());
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
        return Call{kAuto, {line.arguments.first() == "on"_L1}};
    case Verb::Settings:
        if (line.unset) {
            return Call{kUnsetSetting, arguments};
        }
        break;
    case Verb::Key:
        if (line.arguments.first() == "set"_L1) {
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
        return parsed({call.method == kAuto ? u"auto"_s : u"autostart"_s},
                      {arguments.first().toBool() ? u"on"_s : u"off"_s});
    }
    if (call.method == kUnsetSetting && areTexts(arguments, 1)) {
        return parsed({u"settings"_s, u"--unset"_s}, texts(arguments));
    }
    if (call.method == kSetKey && areTexts(arguments, 2)) {
        auto line = parsed({u"key"_s, u"set"_s}, {arguments.first().toString()});
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
