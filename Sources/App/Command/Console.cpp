#include "App/Command/Console.h"

#include "Platform/PrintableText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringDecoder>
#include <QStringList>

#include <cstdio>
#include <optional>

#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane::Console {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

// The longest key of any service is a few hundred characters; a file piped in by mistake is not one.
constexpr std::size_t kLongestKeyBytes = std::size_t{64} * 1024;

void write(std::FILE *stream, const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

/// Keeps the terminal from showing what is typed, for as long as it lives.
class SilentTerminal
{
  public:
    SilentTerminal()
    {
        termios silent{};
        m_isTerminal = ::tcgetattr(STDIN_FILENO, &m_before) == 0;
        if (m_isTerminal) {
            silent = m_before;
            silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        }
    }
    ~SilentTerminal()
    {
        if (m_isTerminal) {
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
            write(stderr, "\n");
        }
    }
    SilentTerminal(const SilentTerminal &) = delete;
    SilentTerminal &operator=(const SilentTerminal &) = delete;
    SilentTerminal(SilentTerminal &&) = delete;
    SilentTerminal &operator=(SilentTerminal &&) = delete;

  private:
    termios m_before{};
    bool m_isTerminal = false;
};

} // namespace

void print(const QString &text)
{
    if (::isatty(STDOUT_FILENO) != 1) {
        write(stdout, text.toUtf8() + '\n');
        return;
    }
    // The lines of a list are ours; what is in them may be anybody's.
    const QStringList lines = text.split('\n'_L1);
    for (const QString &line : lines) {
        write(stdout, printable(line).toUtf8() + '\n');
    }
}

void printJson(const QJsonValue &value)
{
    // QJsonDocument writes lists and objects only, so a single value goes out through a list of one.
    const QByteArray text = printableJson(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    write(stdout, text.sliced(1, text.size() - 2) + '\n');
}

void printError(const QString &words)
{
    const QByteArray clear = ::isatty(STDERR_FILENO) == 1 ? "\r\x1b[K" : "";
    write(stderr, clear + printable(words).toUtf8() + '\n');
}

int fail(const Failure &failure, bool json, int status)
{
    if (json) {
        printJson(failureJson(failure));
    }
    printError(u"quorvane: "_s + failure.words);
    return status;
}

void printProgress(const QString &note)
{
    if (::isatty(STDERR_FILENO) == 1) {
        write(stderr, "\r\x1b[K" + printable(note).toUtf8());
    }
}

Result<QString> readSecret(const QString &question)
{
    const Failure noKey{Tr::tr("standard input holds no key")};
    const bool asks = ::isatty(STDIN_FILENO) == 1;
    if (asks) {
        write(stderr, question.toUtf8());
    }
    QByteArray bytes;
    {
        const std::optional<SilentTerminal> silent = asks ? std::optional<SilentTerminal>(std::in_place) : std::nullopt;
        for (int character = std::getchar(); character != EOF; character = std::getchar()) {
            bytes.append(static_cast<char>(character));
            if (static_cast<std::size_t>(bytes.size()) > kLongestKeyBytes) {
                return noKey;
            }
            if (asks && character == '\n') {
                break;
            }
        }
    }
    if (bytes.endsWith('\n')) {
        bytes.chop(1);
    }
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? noKey : Result<QString>(std::move(text));
}

} // namespace quorvane::Console
