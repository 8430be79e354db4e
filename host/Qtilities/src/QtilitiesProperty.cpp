#include <Qtilities/QtilitiesProperty.h>

#include <cmath>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

QVariant boolFrom(const QString &text)
{
    if (text.compare("true"_L1, Qt::CaseInsensitive) == 0)
        return true;
    if (text.compare("false"_L1, Qt::CaseInsensitive) == 0)
        return false;
    return {};
}

QVariant intFrom(const QString &text)
{
    bool parsed = false;
    const int value = text.toInt(&parsed);
    return parsed ? QVariant(value) : QVariant();
}

QVariant uintFrom(const QString &text)
{
    bool parsed = false;
    const uint value = text.toUInt(&parsed);
    return parsed ? QVariant(value) : QVariant();
}

// A double is a finite number: the words for infinity and for no number at all are refused.
QVariant doubleFrom(const QString &text)
{
    bool parsed = false;
    const double value = text.toDouble(&parsed);
    return parsed && std::isfinite(value) ? QVariant(value) : QVariant();
}

QVariant stringFrom(const QString &text) { return text.isNull() ? QString(""_L1) : text; }

struct TypeWord
{
    QLatin1StringView word;
    QMetaType::Type type;
    QVariant (*parse)(const QString &text);
    // Whether any text will do, blanks around it and all.
    bool anyText;
};

// The first word of a type is the one that typeName answers.
constexpr TypeWord typeWords[] = {
    {"bool"_L1, QMetaType::Bool, boolFrom, false},
    {"int"_L1, QMetaType::Int, intFrom, false},
    {"uint"_L1, QMetaType::UInt, uintFrom, false},
    {"double"_L1, QMetaType::Double, doubleFrom, false},
    {"string"_L1, QMetaType::QString, stringFrom, true},
    {"QString"_L1, QMetaType::QString, stringFrom, true},
};

// Whether a text is nothing but a word, as the number parsers do not insist.
bool isBare(const QString &text)
{
    return !text.isEmpty() && !text.front().isSpace() && !text.back().isSpace()
        && !text.contains(QChar());
}

} // namespace

QtilitiesProperty::QtilitiesProperty(const QString &name, const QVariant &value)
    : propertyName(name),
      propertyValue(value)
{
}

QVariant QtilitiesProperty::constructVariant(const QString &type, const QString &value)
{
    for (const TypeWord &row : typeWords) {
        if (type == row.word)
            return row.anyText || isBare(value) ? row.parse(value) : QVariant();
    }
    return {};
}

QString QtilitiesProperty::typeName(const QVariant &value)
{
    for (const TypeWord &row : typeWords) {
        if (value.typeId() == row.type)
            return row.word;
    }
    return u"string"_s;
}

} // namespace Qtilities::Core
