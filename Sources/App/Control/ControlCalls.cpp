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
