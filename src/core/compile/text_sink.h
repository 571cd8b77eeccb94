#pragma once

#include <QString>
#include <QStringView>
#include <algorithm>
#include <cstring>

namespace tarvo {

// Appends to one text through a plain pointer. The script source grows by
// millions of characters in pieces of a few, and for pieces that small
// QString::append's call and checks cost more than the copy itself.
class TextSink
{
public:
    explicit TextSink(qsizetype capacity = 256) { grow(capacity); }

    TextSink& operator<<(QStringView piece)
    {
        const qsizetype n = piece.size();
        if (m_used + n > m_capacity)
            grow(m_used + n);
        std::copy_n(piece.data(), n, m_data + m_used);
        m_used += n;
        return *this;
    }
    TextSink& operator<<(const QString& piece) { return *this << QStringView(piece); }
    TextSink& operator<<(char16_t c)
    {
        if (m_used + 1 > m_capacity)
            grow(m_used + 1);
        m_data[m_used++] = QChar(c);
        return *this;
    }
    // A number as QString::number writes it.
    TextSink& operator<<(int number)
    {
        char16_t digits[12];
        int n = 0;
        unsigned value = number < 0 ? 0u - unsigned(number) : unsigned(number);
        do {
            digits[n++] = char16_t(u'0' + value % 10);
            value /= 10;
        } while (value != 0);
        if (number < 0)
            *this << u'-';
        while (n > 0)
            *this << digits[--n];
        return *this;
    }
    void appendRepeated(char16_t c, int count)
    {
        for (int i = 0; i < count; ++i)
            *this << c;
    }

    qsizetype size() const { return m_used; }
    void truncate(qsizetype size) { m_used = qMin(size, m_used); }
    QString take()
    {
        m_text.truncate(m_used);
        QString text = std::move(m_text);
        m_text = QString();
        m_data = nullptr;
        m_used = m_capacity = 0;
        return text;
    }

private:
    void grow(qsizetype needed)
    {
        const qsizetype capacity = qMax(needed, m_capacity * 2);
        m_text.resize(capacity);
        m_data = m_text.data();
        m_capacity = capacity;
    }

    QString m_text;
    QChar* m_data = nullptr;
    qsizetype m_used = 0;
    qsizetype m_capacity = 0;
};

// One text of exactly the pieces, made with one allocation: the pieces of a
// script line are short, and appending them one by one regrows the text.
inline QString joined(std::initializer_list<QStringView> pieces)
{
    qsizetype size = 0;
    for (const QStringView piece : pieces)
        size += piece.size();
    QString text(size, Qt::Uninitialized);
    QChar* out = text.data();
    for (const QStringView piece : pieces) {
        std::copy_n(piece.data(), piece.size(), out);
        out += piece.size();
    }
    return text;
}

} // namespace tarvo
