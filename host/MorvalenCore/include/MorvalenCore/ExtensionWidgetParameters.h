#pragma once

#include <QList>
#include <QString>
#include <QWidget>

namespace MorvalenCore {

// A widget that a plug-in adds to the main window, and where it goes.
struct ExtensionWidgetParameters
{
    QString context;
    QString title;
    QWidget *widget = nullptr;
    QWidget *controls = nullptr;
    int area = 0;
    int visibility = 0;
    QList<int> modes;
};

} // namespace MorvalenCore
