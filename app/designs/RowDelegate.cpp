#include "app/designs/RowDelegate.h"

#include <Qtilities/QtilitiesProperty.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>
#include <QValidator>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesProperty;

namespace {

// Lets through what is a value of a type; anything can become one.
class TypeValidator : public QValidator
{
public:
    TypeValidator(const QString &typeWord, QObject *parent) : QValidator(parent), type(typeWord) { }

    State validate(QString &text, int &) const override
    {
        return QtilitiesProperty::constructVariant(type, text).isValid() ? Acceptable
                                                                         : Intermediate;
    }

private:
    QString type;
};

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), std::max(size.height(), option.fontMetrics.height() * 3 / 2)};
}

QWidget *RowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                   const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::EditRole);
    const QString type = QtilitiesProperty::typeName(value);
    if (type == u"bool"_s) {
        auto *choice = new QComboBox(parent);
        choice->addItems({u"false"_s, u"true"_s});
        choice->setCurrentText(value.toString());
        return choice;
    }
    auto *line = new QLineEdit(value.toString(), parent);
    line->setFrame(false);
    line->setValidator(new TypeValidator(type, line));
    return line;
}

void RowDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                               const QModelIndex &index) const
{
    const auto *choice = qobject_cast<QComboBox *>(editor);
    const auto *line = qobject_cast<QLineEdit *>(editor);
    const QString text = choice ? choice->currentText() : line->text();
    const QVariant value = QtilitiesProperty::constructVariant(
        QtilitiesProperty::typeName(index.data(Qt::EditRole)), text);
    if (value.isValid() && value != index.data(Qt::EditRole))
        model->setData(index, value);
}

bool RowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                            const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isCut = sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !isCut)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStringList lines {index.data(Qt::DisplayRole).toString()};
    if (const QString tip = index.data(Qt::ToolTipRole).toString(); !tip.isEmpty())
        lines.append(tip);
    // A name is no markup.
    const QString text = lines.join(u'\n');
    QToolTip::showText(event->globalPos(),
                       Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text,
                       view->viewport(), option.rect);
    return true;
}
