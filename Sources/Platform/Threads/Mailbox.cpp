#include "Platform/Threads/Mailbox.h"

#include "Platform/Threads/ThreadHandover.h"

#include <QCoreApplication>
#include <QEvent>

#include <memory>
#include <utility>

namespace quorvane {

namespace {

const auto kLetter = static_cast<QEvent::Type>(QEvent::registerEventType());

class Letter final : public QEvent
{
  public:
    explicit Letter(std::function<void()> call)
        : QEvent(kLetter)
        , m_call(std::move(call))
    {
        ThreadHandover::giving(this);
    }
    Letter(const Letter &) = delete;
    Letter &operator=(const Letter &) = delete;
    Letter(Letter &&) = delete;
    Letter &operator=(Letter &&) = delete;
    ~Letter() override { ThreadHandover::taking(this); }

    void open() { m_call(); }

  private:
    std::function<void()> m_call;
};

} // namespace

void Mailbox::post(std::function<void()> call)
{
    auto letter = std::make_unique<Letter>(std::move(call));
    QCoreApplication::postEvent(this, letter.release());
}

bool Mailbox::event(QEvent *event)
{
    ThreadHandover::taking(event);
    auto *letter = dynamic_cast<Letter *>(event);
    if (letter == nullptr) {
        return QObject::event(event);
    }
    letter->open();
    return true;
}

} // namespace quorvane
