// The pictures of actions.

#include "app/drawing/actionicons.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QPalette>

using namespace Qt::Literals::StringLiterals;

class tst_ActionIcons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noneHasNoPicture();
    void eachIsLikeNoOther();
    void eachFollowsThePalette();
    void eachIsSharpAtTwiceTheSize();
    void whatIsDisabledIsPaler();
};

namespace {

QList<ActionIcon> all()
{
    QList<ActionIcon> icons;
    for (int i = int(ActionIcon::None) + 1; i <= int(ActionIcon::Last); ++i)
        icons.append(ActionIcon(i));
    return icons;
}

QImage picture(ActionIcon which, int size = 16, QIcon::Mode mode = QIcon::Normal)
{
    return actionicons::icon(which).pixmap(QSize(size, size), 1, mode).toImage();
}

// How much of it all is covered.
double covered(const QImage &image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    }
    return sum / image.width() / image.height();
}

} // namespace

void tst_ActionIcons::noneHasNoPicture() { QVERIFY(actionicons::icon(ActionIcon::None).isNull()); }

void tst_ActionIcons::eachIsLikeNoOther()
{
    const QList<ActionIcon> icons = all();
    for (qsizetype i = 0; i < icons.size(); ++i) {
        QVERIFY2(covered(picture(icons[i])) > 0.05, qPrintable(QString::number(i)));
        for (qsizetype j = 0; j < i; ++j)
            QVERIFY2(picture(icons[i]) != picture(icons[j]), qPrintable(u"%1 %2"_s.arg(i).arg(j)));
    }
}

void tst_ActionIcons::eachFollowsThePalette()
{
    const QPalette usual = QApplication::palette();
    for (const ActionIcon which : all()) {
        // One that stands in a menu already.
        const QIcon icon = actionicons::icon(which);
        QPalette other = usual;
        other.setColor(QPalette::Text, Qt::black);
        QApplication::setPalette(other);
        const QImage onLight = icon.pixmap(QSize(16, 16), 1).toImage();
        other.setColor(QPalette::Text, Qt::white);
        QApplication::setPalette(other);
        const QImage onDark = icon.pixmap(QSize(16, 16), 1).toImage();
        QApplication::setPalette(usual);
        QVERIFY2(onLight != onDark, qPrintable(QString::number(int(which))));
    }
}

// Drawn anew, not enlarged, and as large.
void tst_ActionIcons::eachIsSharpAtTwiceTheSize()
{
    for (const ActionIcon which : all()) {
        const QImage small = picture(which);
        const QImage large = picture(which, 32);
        QCOMPARE(large.size(), QSize(32, 32));
        QVERIFY(large != small.scaled(32, 32));
        QVERIFY2(qAbs(covered(large) - covered(small)) < 0.05,
                 qPrintable(QString::number(int(which))));
    }
}

void tst_ActionIcons::whatIsDisabledIsPaler()
{
    for (const ActionIcon which : all())
        QVERIFY2(picture(which, 16, QIcon::Disabled) != picture(which),
                 qPrintable(QString::number(int(which))));
}

TEST_CLASS(tst_ActionIcons)
#include "tst_ActionIcons.moc"
