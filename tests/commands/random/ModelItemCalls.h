#pragma once

#include "tests/commands/random/ModelState.h"

// The answers of sfile, sfolder and sproperty.
class ModelItemCalls
{
public:
    explicit ModelItemCalls(ModelState *modelState) : state(*modelState) { }

    ModelAnswer answer(ModelKind &kind, const QStringList &words);

private:
    ModelAnswer getItem(const ModelKind &kind, const ModelItem &item, const QString &what) const;
    ModelAnswer setItem(ModelKind &kind, ModelItem &item, const QStringList &words);
    ModelAnswer shared(const ModelKind &kind, ModelItem &item, const QStringList &words);
    ModelAnswer setShared(const QString &about, ModelItem &item, const QStringList &words);

    ModelState &state;
};
