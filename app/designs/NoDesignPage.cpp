#include "app/designs/NoDesignPage.h"

NoDesignPage::NoDesignPage(QWidget *parent) : QLabel(parent)
{
    setText(tr("<h3>No design is open</h3>"
               "<p>Open a component file with <b>File &gt; Open</b>, or make a design "
               "in the console:</p><pre>designs new uart \"Hardware Design\"</pre>"));
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(fontMetrics().height());
    setForegroundRole(QPalette::PlaceholderText);
}
