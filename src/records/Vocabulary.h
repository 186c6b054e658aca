#pragma once

#include <QString>

#include <array>

/// One choice of a field: the number that a record stores for it, and its text.
struct Choice
{
    qint64 stored = 0;
    const char *text = nullptr; ///< UTF-8
};

/// The choices of a field, in the order in which a list offers them.
class Vocabulary
{
public:
    /// Choices with the numbers they store.
    template <std::size_t N>
    static constexpr Vocabulary of(const Choice (&choices)[N])
    {
        Vocabulary vocabulary;
        for (const Choice &choice : choices)
            vocabulary.m_choices[vocabulary.m_count++] = choice;
        return vocabulary;
    }

    /// Choices that store their position in the list.
    template <class... Text>
    static constexpr Vocabulary positions(Text... texts)
    {
        Vocabulary vocabulary;
        ((vocabulary.m_choices[vocabulary.m_count] = {vocabulary.m_count, texts},
          ++vocabulary.m_count),
         ...);
        return vocabulary;
    }

    /// The same choices; any number that has none is read as the last one.
    constexpr Vocabulary otherwiseLast() const
    {
        Vocabulary vocabulary = *this;
        vocabulary.m_otherwiseLast = true;
        return vocabulary;
    }

    constexpr const Choice *begin() const { return m_choices.data(); }
    constexpr const Choice *end() const { return begin() + m_count; }
    constexpr int size() const { return m_count; }
    constexpr const Choice &at(int position) const { return begin()[position]; }

    /// List position of the choice that stores exactly this number; -1 if there is none.
    constexpr int positionOf(qint64 stored) const
    {
        for (int position = 0; position < m_count; ++position)
            if (at(position).stored == stored)
                return position;
        return -1;
    }

    /// List position of the choice as which a stored number is read; -1 for an unknown number.
    constexpr int positionRead(qint64 stored) const
    {
        const int position = positionOf(stored);
        return position < 0 && m_otherwiseLast ? m_count - 1 : position;
    }

    /// List position of the choice with exactly this text; -1 if there is none.
    int positionOf(const QString &text) const
    {
        for (int position = 0; position < m_count; ++position)
            if (text == QString::fromUtf8(at(position).text))
                return position;
        return -1;
    }

private:
    std::array<Choice, 22> m_choices{}; // the longest list: shutter speeds
    int m_count = 0;
    bool m_otherwiseLast = false;
};
