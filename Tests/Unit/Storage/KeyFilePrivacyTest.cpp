#include "Support/Files.h"
#include "Support/PrivateHome.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// No moment exists in which others can read a key: judged from the system calls of a process that writes the file.
namespace quorvane {

namespace {

/// What a trace says about the files in a folder.
struct Verdict
{
    int created = 0;          ///< Files that came into being.
    int replaced = 0;         ///< Times that one took the name keys.json.
    QStringList openToOthers; ///< Lines that give the group or others any right.
};

Verdict judge(const QString &trace, const QString &folder)
{
    static const QRegularExpression creation(uR"(\b(?:open|openat|creat)\(.*?(?:, (0[0-7]*))?\) = \d)"_s);
    static const QRegularExpression change(uR"(\b(?:chmod|fchmod|fchmodat|fchmodat2)\(.*, (0[0-7]*)(?:, \w+)?\) = )"_s);
    Verdict verdict;
    for (const QString &line : trace.split('\n'_L1)) {
        const bool isOurs = line.contains(folder + '/'_L1);
        bool isNumber = true;
        uint mode = 0;
        if (isOurs && (line.contains(u"O_CREAT"_s) || line.contains(u"creat("_s))) {
            mode = creation.match(line).captured(1).toUInt(&isNumber, 8);
            ++verdict.created;
        } else if (const auto match = change.match(line); match.hasMatch()) {
            // fchmod names no file, so every change of a mode counts.
            mode = match.captured(1).toUInt(&isNumber, 8);
        } else if (isOurs && line.contains(u"rename"_s) && line.contains(u"/keys.json\""_s)) {
            ++verdict.replaced;
        }
        if (!isNumber || (mode & 077U) != 0) {
            verdict.openToOthers.append(line);
        }
    }
    return verdict;
}

} // namespace

TEST(KeyFilePrivacy, theJudgeSeesEveryWayToOpenAFileToOthers)
{
    const QString folder = u"/h/Q"_s;
    for (const char *bad : {R"(5 openat(AT_FDCWD, "/h/Q/a", O_WRONLY|O_CREAT|O_CLOEXEC, 0666) = 3)",
                            R"(open("/h/Q/a", O_WRONLY|O_CREAT, 0640) = 3)", R"(creat("/h/Q/a", 0604) = 3)",
                            R"(chmod("/h/Q/keys.json", 0644) = 0)", R"(fchmod(3, 0660) = 0)",
                            R"(fchmodat(AT_FDCWD, "/h/Q/keys.json", 0644) = 0)",
                            R"(openat(AT_FDCWD, "/h/Q/a", O_WRONLY|O_CREAT, unknown) = 3)"}) {
        EXPECT_EQ(judge(QString::fromLatin1(bad), folder).openToOthers.size(), 1) << bad;
    }
    for (const char *good : {R"(5 openat(AT_FDCWD, "/h/Q/a", O_RDWR|O_CREAT|O_EXCL, 0600) = 3)",
                             R"(fchmod(3, 0600) = 0)", R"(openat(AT_FDCWD, "/h/Q/keys.json", O_RDONLY|O_CLOEXEC) = 3)",
                             R"(openat(AT_FDCWD, "/elsewhere/a", O_WRONLY|O_CREAT, 0666) = 3)"}) {
        EXPECT_TRUE(judge(QString::fromLatin1(good), folder).openToOthers.isEmpty()) << good;
    }
}

TEST(KeyFilePrivacy, noMomentExistsInWhichOthersCanReadAKey)
{
    if (QStandardPaths::findExecutable(u"strace"_s).isEmpty()) {
        GTEST_SKIP() << "strace is not installed";
    }
    const PrivateHome home;
    const QString tracePath = home.path() + u"/trace"_s;
    QProcess strace;
    // The leak sanitizer, where the writer has one, cannot work under a tracer.
    strace.start(u"strace"_s,
                 {u"-f"_s, u"-s"_s, u"4096"_s, u"-o"_s, tracePath, u"-E"_s, u"ASAN_OPTIONS=detect_leaks=0"_s, u"-e"_s,
                  u"trace=?open,openat,?creat,?chmod,fchmod,fchmodat,?rename,?renameat,renameat2"_s,
                  QStringLiteral(KEY_FILE_WRITER)});
    ASSERT_TRUE(strace.waitForFinished());
    const QByteArray errors = strace.readAllStandardError();
    if (errors.startsWith("strace: ")) {
        GTEST_SKIP() << "tracing is not allowed here: " << errors.constData();
    }
    ASSERT_EQ(strace.exitCode(), 0) << errors.constData();

    const QString folder = home.path() + u"/Library/Application Support/Quorvane"_s;
    const Verdict verdict = judge(QString::fromUtf8(contentOf(tracePath)), folder);
    EXPECT_EQ(verdict.created, 5); // Four times the file, and the lock once.
    EXPECT_EQ(verdict.replaced, 4);
    EXPECT_EQ(verdict.openToOthers, QStringList()) << qPrintable(verdict.openToOthers.join('\n'_L1));
    EXPECT_EQ(contentOf(folder + u"/keys.json"_s), "{\"grok\":\"k3\"}");
}

} // namespace quorvane
