#pragma once

#include <QHeaderView>
#include <QTableView>

// Makes a table compact, and high enough for so many rows.
inline void makeCompact(QTableView *table, int rows)
{
    QHeaderView *numbers = table->verticalHeader();
    const int margin =
        2 * table->style()->pixelMetric(QStyle::PM_FocusFrameVMargin, nullptr, table);
    const int height = table->fontMetrics().height() + margin;
    numbers->setMinimumSectionSize(height);
    numbers->setDefaultSectionSize(height);
    table->setMinimumHeight(table->horizontalHeader()->sizeHint().height() + rows * height
                            + 2 * table->frameWidth());
}
