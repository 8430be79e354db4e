#pragma once

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>

// What is fuzzed: where its inputs come from, and what is wrong when one is tried.
class Subject
{
public:
    virtual ~Subject() = default;

    // The same input for the same state of the generator.
    virtual QByteArray make(QRandomGenerator &random) = 0;

    // What is wrong, in a few words; empty when nothing is. Depends on the input alone.
    virtual QString finding(const QByteArray &input) = 0;
};
