#pragma once

#include <QLabel>

// What is shown while no design is open: how to begin.
class NoDesignPage : public QLabel
{
    Q_OBJECT

public:
    explicit NoDesignPage(QWidget *parent = nullptr);
};
