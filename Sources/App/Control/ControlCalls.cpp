#include "App/Control/ControlCalls.h"

#include "App/Command/CommandTable.h"

#include <QDBusArgument>
#include <QVariantMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::Control {

namespace {

using Argument = CommandForm::Argument;
using Extra = CommandForm::Extra;

const QLatin1String kPrompt("prompt");

/// The types of what the method of a form takes.
QStringList typesOf(const CommandForm &form)
{
    if (form.extra == Extra::Prompt) {
        return {u"a{sv}"_s};
    }
    QStringList types;
    for (const Argument argument : form.arguments) {
        types.append(argument == Argument::Switch ? u"b"_s : u"s"_s);
    }
    if (form.extra == Extra::Secret) {
        types.append(u"s"_s);
    }
    return types;
}

bool haveTypes(const QVariantList &arguments, const QStringList &types)
{
    return std::equal(arguments.begin(), arguments.end(), types.begin(), types.end(),
                      [](const QVariant &argument, const QString &type) {
                          return argument.typeId() == (type == "b"_L1 ? QMetaType::Bool : QMetaType::QString);
                      });
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
    line.verb = CommandLine::Verb::Generate;
    const QVariant prompt = options->value(kPrompt);
    if (prompt.isValid() && prompt.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    if (prompt.isValid()) {
        line.prompt = prompt.toString();
    }
    return line;
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
    for (const CommandForm &form : commandForms()) {
        method(form.method, typesOf(form));
    }
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
    const CommandForm *form = formOf(line);
    if (form == nullptr || form->by == CommandForm::By::Process) {
        return std::nullopt;
    }
    Call call{form->method, {}};
    if (form->extra == Extra::Prompt) {
        call.arguments.append(line.prompt ? QVariantMap{{QString(kPrompt), *line.prompt}} : QVariantMap());
    }
    const QStringList texts = line.arguments.mid(form->action.isEmpty() ? 0 : 1);
    for (qsizetype index = 0; index < texts.size(); ++index) {
        const bool isSwitch = form->arguments.at(index) == Argument::Switch;
        call.arguments.append(isSwitch ? QVariant(texts.at(index) == "on"_L1) : QVariant(texts.at(index)));
    }
    if (form->extra == Extra::Secret) {
        call.arguments.append(line.secret);
    }
    return call;
}

std::optional<CommandLine> lineFrom(const Call &call)
{
    const QList<CommandForm> &forms = commandForms();
    const auto form = std::find_if(forms.begin(), forms.end(),
                                   [&call](const CommandForm &each) { return each.method == call.method; });
    if (form == forms.end()) {
        return std::nullopt;
    }
    if (form->extra == Extra::Prompt) {
        return generateFrom(call.arguments);
    }
    if (!haveTypes(call.arguments, typesOf(*form))) {
        return std::nullopt;
    }
    CommandLine line;
    line.verb = form->verb;
    line.unset = form->extra == Extra::Unset;
    if (!form->action.isEmpty()) {
        line.arguments.append(form->action);
    }
    for (qsizetype index = 0; index < form->arguments.size(); ++index) {
        const QVariant &argument = call.arguments.at(index);
        const bool isSwitch = form->arguments.at(index) == Argument::Switch;
        line.arguments.append(isSwitch ? (argument.toBool() ? u"on"_s : u"off"_s) : argument.toString());
    }
    if (form->extra == Extra::Secret) {
        line.secret = call.arguments.last().toString();
    }
    return formOf(line) == &*form ? std::optional(line) : std::nullopt;
}

} // namespace quorvane::Control
