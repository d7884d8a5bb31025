#include "App/Control/ControlCalls.h"

#include <QFile>
#include <QMap>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The interface as its file describes it, against the table of commands.
namespace quorvane {

namespace {

/// The methods of the interface, each with the types of what it takes.
QMap<QString, QStringList> describedMethods()
{
    QFile file(QStringLiteral(CONTROL_INTERFACE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QMap<QString, QStringList> methods;
    QString method;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QXmlStreamAttributes attributes = xml.attributes();
        const auto value = [&attributes](const QString &name) { return attributes.value(name).toString(); };
        if (xml.name() == "interface"_L1) {
            EXPECT_EQ(value(u"name"_s), Control::interfaceName());
        } else if (xml.name() == "method"_L1) {
            method = value(u"name"_s);
            methods.insert(method, {});
        } else if (xml.name() == "arg"_L1 && value(u"direction"_s) == "in"_L1) {
            methods[method].append(value(u"type"_s));
        } else if (xml.name() == "arg"_L1) {
            EXPECT_EQ(value(u"type"_s), u"s"_s) << method.toStdString() << " gives JSON";
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return methods;
}

} // namespace

TEST(ControlInterface, hasAMethodForEveryFormOfACommandAndNoOther)
{
    const auto methods = describedMethods();
    QMap<QString, QStringList> wanted;
    for (const CommandForm &form : commandForms()) {
        wanted.insert(form.method, Control::typesOf(form));
    }
    EXPECT_EQ(methods.keys(), wanted.keys());
    for (auto method = wanted.begin(); method != wanted.end(); ++method) {
        EXPECT_EQ(methods.value(method.key()), *method) << method.key().toStdString();
    }
}

} // namespace quorvane
