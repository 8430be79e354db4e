#pragma once

#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <array>
#include <optional>

// The words that random calls are made of, and what a model needs to know of them.
namespace vocabulary {

using namespace Qt::Literals::StringLiterals;

inline const QString withZero = u"a\0b"_s;

// Whether a component file can keep the text.
inline bool isKept(const QString &text) { return !text.contains(QChar(0)); }

struct Value
{
    QString type;
    QString text;
    // Invalid where the text is none of the type's.
    QVariant value;
};

inline const QList<Value> values {{u"int"_s, u"5"_s, 5},
                                  {u"int"_s, u"-7"_s, -7},
                                  {u"int"_s, u"five"_s, {}},
                                  {u"int"_s, u"2147483648"_s, {}},
                                  {u"uint"_s, u"4294967295"_s, 4294967295U},
                                  {u"uint"_s, u"-1"_s, {}},
                                  {u"bool"_s, u"TRUE"_s, true},
                                  {u"bool"_s, u"0"_s, {}},
                                  {u"double"_s, u"0.10"_s, 0.1},
                                  {u"double"_s, u"nan"_s, {}},
                                  {u"string"_s, u""_s, u""_s},
                                  {u"string"_s, u" %1 <\"&'> \u20ac\n"_s, u" %1 <\"&'> \u20ac\n"_s},
                                  {u"string"_s, withZero, withZero},
                                  {u"QString"_s, u"t"_s, u"t"_s},
                                  {u"String"_s, u"t"_s, {}}};

inline const QStringList texts {u""_s, u"plain"_s, u"\"%1\" {<&>} $x [y]"_s,
                                u" two\nlines \u00e4\U0001F600"_s, withZero};
inline const QStringList names {u"d"_s, u"e.2-x"_s, u"_"_s, u"9"_s, u"a b"_s, u""_s};
inline const QStringList truths {u"true"_s, u"FALSE"_s, u"yes"_s, u""_s};
inline const QStringList categories {u"A::B"_s, u"A"_s, u""_s, u"::A::::x y::"_s, u"HDL"_s};
inline const QStringList nodes {u"rtl"_s, u"documents"_s,      u"HDL"_s, u"HDL::Verilog"_s,
                                u"A"_s,   u"no node \"%1\""_s, u""_s};
inline const QStringList propertyNames {u"p"_s, u"q r"_s, u"%2"_s, u"\u00e9\""_s, u""_s, withZero};
inline const QStringList sharedNames {u"s"_s, u"%3 t"_s, u""_s, withZero, u"objectName"_s};

inline std::optional<bool> truthOf(const QString &word)
{
    if (word.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    return std::nullopt;
}

inline QVariant valueOf(const QString &type, const QString &text)
{
    const auto found = std::find_if(values.cbegin(), values.cend(), [&](const Value &value) {
        return value.type == type && value.text == text;
    });
    return found == values.cend() ? QVariant() : found->value;
}

inline QString categoryOf(const QString &word)
{
    return word.split(u"::"_s, Qt::SkipEmptyParts).join(u"::"_s);
}

} // namespace vocabulary
