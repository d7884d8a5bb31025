#include "Providers/Base64.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace quorvane {

TEST(Base64, takesTheStandardAlphabetWithItsPaddingOnly)
{
    struct Case
    {
        QByteArray text;
        std::optional<QByteArray> bytes;
    };
    const std::vector<Case> cases{
        {"", QByteArray()},
        {"TQ==", "M"},
        {"TWE=", "Ma"},
        {"TWFu", "Man"},
        {"TWFuTWFu", "ManMan"},
        {"+/+/", "\xfb\xff\xbf"},
        // Bits behind the last byte are not looked at.
        {"TR==", "M"},
        {"TWF=", "Ma"},
        // Missing or surplus padding.
        {"TQ", std::nullopt},
        {"TQ=", std::nullopt},
        {"TWE", std::nullopt},
        {"TWFu=", std::nullopt},
        {"TWFu====", std::nullopt},
        {"TQ======", std::nullopt},
        {"====", std::nullopt},
        {"T===", std::nullopt},
        {"=", std::nullopt},
        // Padding in the middle.
        {"TQ==TWFu", std::nullopt},
        {"TW=u", std::nullopt},
        {"T=Fu", std::nullopt},
        // White space and foreign alphabets.
        {"TW Fu", std::nullopt},
        {"TWFu\n", std::nullopt},
        {"TWFu\r\nTWFu", std::nullopt},
        {" TWFu", std::nullopt},
        {"-_-_", std::nullopt},
        {"TWF\xc3", std::nullopt},
        {QByteArray("TWF\0", 4), std::nullopt},
        {"data", QByteArray("\x75\xab\x5a")},
        {"data:", std::nullopt},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(decodeBase64(each.text), each.bytes) << each.text.constData();
    }
}

TEST(Base64, bringsBackWhateverBytesWereEncoded)
{
    QRandomGenerator random(7);
    for (qsizetype size = 0; size < 300; ++size) {
        QByteArray bytes(size, Qt::Uninitialized);
        for (char &byte : bytes) {
            byte = static_cast<char>(random.bounded(256));
        }
        EXPECT_EQ(decodeBase64(bytes.toBase64()), bytes);
    }
}

TEST(Base64, refusesEveryForeignByteAtEveryPlace)
{
    const QByteArray good = QByteArray("a picture").toBase64();
    const QByteArray alphabet("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
    for (int value = 0; value < 256; ++value) {
        const auto byte = static_cast<char>(value);
        if (alphabet.contains(byte)) {
            continue;
        }
        for (qsizetype at = 0; at < good.size() - 1; ++at) {
            QByteArray bad = good;
            bad[at] = byte;
            EXPECT_FALSE(decodeBase64(bad)) << value << " at " << at;
        }
    }
}

} // namespace quorvane
