#pragma once

#include "app/editor/EditorPage.h"

#include <QLineEdit>
#include <QVBoxLayout>

// A page that notes what is asked of it.
class FakePage : public EditorPage
{
public:
    explicit FakePage(const QString &name, const QString &key = {})
        : theName(name),
          theKey(key.isEmpty() ? name : key)
    {
        setFocusProxy(line);
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(line);
    }

    QString key() const override { return theKey; }
    QString title() const override { return theName; }
    QString toolTipText() const override { return QStringLiteral("the file ") + theName; }
    QString filePath() const override { return path; }
    bool isModified() const override { return modified; }

    Qtilities::Core::Status save() override
    {
        saves += 1;
        if (refuses)
            return Qtilities::Core::Status::io(problem);
        setModified(false);
        return {};
    }

    bool can(Command command) const override { return command == able; }
    void run(Command command) override { ran.append(command); }

    FakePage *setModified(bool is)
    {
        modified = is;
        Q_EMIT stateChanged();
        return this;
    }

    QString path;
    QString problem;
    bool refuses = false;
    int saves = 0;
    int able = -1;
    QList<Command> ran;

private:
    QString theName;
    QString theKey;
    QLineEdit *line = new QLineEdit(this);
    bool modified = false;
};
