#include "UI/Play/Stage.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

bool Stage::usePrompt()
{
    const bool isUsed = clickSeen(isPreviewOpen() ? u"previewUsePromptButton"_s : u"usePromptButton"_s);
    // The button has taken the keyboard from the editor, and what it gives back is not typed.
    m_isTyping = m_isTyping && !isUsed;
    return isUsed;
}

QString Stage::takePromptBack()
{
    const QString before = editorText();
    if (isPreviewOpen() || !usePrompt() || editorText() == before) {
        return {};
    }
    clickSeen(u"promptEditor"_s);
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    m_isTyping = true;
    return editorText() == before
               ? QString()
               : u"Ctrl+Z after Use Prompt gives \"%1\" instead of \"%2\""_s.arg(editorText(), before);
}

QString Stage::type(quint32 number)
{
    if (!clickSeen(u"promptEditor"_s)) {
        return {};
    }
    const qsizetype before = editorText().size();
    const QString text = u"x%1 "_s.arg(number % 10);
    ViewTest::type(text);
    m_isTyping = true;
    return editorText().size() == before + text.size() && editorText().contains(text)
               ? QString()
               : u"the editor shows \"%1\" after \"%2\" was typed"_s.arg(editorText(), text);
}

QString Stage::undo()
{
    const QString before = editorText();
    if (clickSeen(u"promptEditor"_s)) {
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
        m_isTyping = m_isTyping || editorText() != before;
    }
    return {};
}

QString Stage::generate()
{
    const QString text = editorText();
    service.clearRequests();
    if (isPreviewOpen() || !clickSeen(u"generateButton"_s)) {
        return {};
    }
    m_isTyping = false;
    manager->waitUntilIdle();
    if (service.requests().isEmpty()) {
        return u"the button was pressed and nothing was asked of the service"_s;
    }
    const QByteArray body = service.requests().first().body;
    return body.contains(text.toUtf8())
               ? QString()
               : u"the editor shows \"%1\", and the service was asked for %2"_s.arg(text, QString::fromUtf8(body));
}

QString Stage::actInSidebar(const Deed &deed)
{
    using Kind = Deed::Kind;
    switch (deed.kind) {
    case Kind::UsePrompt:
        usePrompt();
        return {};
    case Kind::TakePromptBack:
        return takePromptBack();
    case Kind::Type:
        return type(deed.number);
    case Kind::Undo:
        return undo();
    case Kind::Generate:
        return generate();
    case Kind::SwitchFourK:
        clickSeen(u"fourKToggle"_s);
        return {};
    case Kind::SwitchNsfw:
        clickSeen(u"nsfwToggle"_s);
        return {};
    case Kind::SwitchTheme:
        QGuiApplication::setPalette(deed.number % 2 == 0 ? palette(Qt::white, Qt::black)
                                                         : palette(QColor(30, 30, 30), Qt::white));
        return {};
    case Kind::Resize:
        window->resize(pick(std::array{QSize(760, 480), QSize(1100, 760), QSize(1400, 900)}, deed.number));
        return {};
    default:
        return {};
    }
}

} // namespace quorvane
