#pragma once

#include <QByteArray>
#include <QIODevice>

namespace quorvane {

/// The body of a request that may go out once: its bytes can be read from front to back and never again. It does not
/// copy them.
class OnceReadBody : public QIODevice
{
  public:
    explicit OnceReadBody(QByteArray bytes);

    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool atEnd() const override { return m_read == m_bytes.size(); }
    [[nodiscard]] qint64 bytesAvailable() const override { return m_bytes.size() - m_read; }

    /// Refuses. (Qt's own refusal for sequential devices writes a warning.)
    bool reset() override { return false; }

  protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

  private:
    QByteArray m_bytes;
    qsizetype m_read = 0;
};

} // namespace quorvane
