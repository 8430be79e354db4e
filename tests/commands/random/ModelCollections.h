#pragma once

#include "tests/commands/random/ModelState.h"

// The answers of files, folders and properties.
class ModelCollections
{
public:
    explicit ModelCollections(ModelState *modelState) : state(*modelState) { }

    ModelAnswer answer(ModelKind &kind, const QStringList &words);

private:
    ModelAnswer add(ModelKind &kind, const QString &word);
    ModelAnswer remove(ModelKind &kind, const QString &word);
    ModelAnswer erase(ModelKind &kind, const QString &word);
    ModelAnswer removeAll(ModelKind &kind, const QString &node);
    ModelAnswer eraseAll(ModelKind &kind, const QString &node);
    ModelAnswer list(const ModelKind &kind, const QString &node) const;
    ModelAnswer setProperty(const QStringList &words);
    QStringList keysUnder(const ModelKind &kind, const QString &node) const;
    bool eraseFromDisk(const ModelKind &kind, const QString &key);

    ModelState &state;
};
