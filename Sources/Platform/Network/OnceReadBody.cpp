#include "Platform/Network/OnceReadBody.h"

#include <algorithm>

namespace quorvane {

OnceReadBody::OnceReadBody(QByteArray bytes)
    : m_bytes(std::move(bytes))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 OnceReadBody::readData(char *data, qint64 maxSize)
{
    if (atEnd()) {
        return -1;
    }
    const qint64 part = std::min<qint64>(maxSize, m_bytes.size() - m_read);
    std::copy_n(m_bytes.constData() + m_read, part, data);
    m_read += part;
    return part;
}

qint64 OnceReadBody::writeData(const char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}

} // namespace quorvane
