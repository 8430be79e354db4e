#pragma once

#include <QString>

// What the process holds now.
struct Usage
{
    qint64 memory = 0; // kilobytes
    int descriptors = 0;
    int threads = 0;
    int objects = 0; // below the application, the windows and the managers
    int timers = 0; // of these
    int children = 0; // processes, zombies among them

    static Usage now();

    // What of the counts is more than it was; memory is another matter.
    QString difference(const Usage &before) const;
};
