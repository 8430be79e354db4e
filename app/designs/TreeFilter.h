#pragma once

#include <QString>
#include <QStringList>

// What the user typed to find items: words that must all be in a text, in any case.
class TreeFilter
{
public:
    TreeFilter() = default;
    explicit TreeFilter(const QString &text)
        : words(text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
    {
    }

    // An empty filter lets everything through.
    bool isEmpty() const { return words.isEmpty(); }

    bool accepts(const QString &text) const
    {
        for (const QString &word : words) {
            if (!text.contains(word, Qt::CaseInsensitive))
                return false;
        }
        return true;
    }

    bool operator==(const TreeFilter &) const = default;

private:
    QStringList words;
};
