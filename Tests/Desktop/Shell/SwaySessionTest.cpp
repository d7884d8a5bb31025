#include "ShellPanelFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>

#include <cstring>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A token such as launchers get for what they start, asked for by the least that is a Wayland client.
QByteArray activationToken(const QString &socketPath)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    const auto word = [](quint32 value) { return QByteArray(reinterpret_cast<const char *>(&value), sizeof value); };
    const auto text = [&word](QByteArray bytes) {
        bytes.append('\0');
        const QByteArray length = word(static_cast<quint32>(bytes.size()));
        return length + bytes.leftJustified((bytes.size() + 3) / 4 * 4, '\0');
    };
    const auto request = [&](quint32 object, quint32 opcode, const QByteArray &arguments) {
        const auto size = static_cast<quint32>(8 + arguments.size());
        socket.write(word(object) + word(size << 16U | opcode) + arguments);
    };
    enum : quint32 { Display = 1, Registry, Activation, Token };
    QByteArray received;
    QByteArray token;
    const auto number = [&received](qsizetype at) {
        quint32 value = 0;
        std::memcpy(&value, received.constData() + at, sizeof value);
        return value;
    };
    const auto readEvents = [&] {
        received += socket.readAll();
        while (received.size() >= 8 && received.size() >= static_cast<qsizetype>(number(4) >> 16U)) {
            const quint32 sender = number(0);
            const auto size = static_cast<qsizetype>(number(4) >> 16U);
            if (sender == Registry && (number(4) & 0xffffU) == 0) {
                const QByteArray interface = received.mid(16, number(12) - 1);
                if (interface == "xdg_activation_v1") {
                    request(Registry, 0, word(number(8)) + text(interface) + word(1) + word(Activation));
                    request(Activation, 1, word(Token));
                    request(Token, 3, {});
                }
            } else if (sender == Token) {
                token = received.mid(12, number(8) - 1);
            }
            received.remove(0, size);
        }
        return !token.isEmpty();
    };
    request(Display, 1, word(Registry));
    return waitFor(readEvents) ? token : QByteArray();
}

} // namespace

TEST_F(SwaySessionTest, aSecondStartWithATokenGetsTheFocusForTheWindow)
{
    const auto first = startApplication({});
    ASSERT_TRUE(first->says("main opened"));
    const auto focused = [this] {
        const QJsonDocument tree = QJsonDocument::fromJson(ask({u"-rt"_s, u"get_tree"_s}));
        QList<QJsonObject> left{tree.object()};
        while (!left.isEmpty()) {
            const QJsonObject node = left.takeFirst();
            if (node.value("focused"_L1).toBool()) {
                return node.value("app_id"_L1).toString();
            }
            const QJsonArray children = node.value("nodes"_L1).toArray();
            for (const QJsonValue child : children) {
                left.append(child.toObject());
            }
        }
        return QString();
    };
    const QString ours = u"app.quorvane.Quorvane"_s;
    ASSERT_TRUE(waitFor([&] { return focused() == ours; }));
    (void)ask({u"workspace 2"_s});
    ASSERT_TRUE(waitFor([&] { return focused() != ours; }));
    // Without a token it stays where it is.
    EXPECT_EQ(startApplication({})->waitForEnd(), 0);
    EXPECT_NE(focused(), ours);
    const QByteArray token = activationToken(sway->runtimeFolder() + u"/wayland-1"_s);
    ASSERT_FALSE(token.isEmpty());
    EXPECT_EQ(startApplication({}, QString::fromLatin1(token))->waitForEnd(), 0);
    EXPECT_TRUE(waitFor([&] { return focused() == ours; }));
    EXPECT_EQ(first->count("main opened"), 1);
}

} // namespace quorvane
