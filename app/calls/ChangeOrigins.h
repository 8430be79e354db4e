#pragma once

#include <QHash>
#include <QObject>

// Who has changed the designs that are not saved. One of them that the user has never touched, only
// a command or a build, is worth a word before it is saved or given up. One per window.
class ChangeOrigins : public QObject
{
    Q_OBJECT

public:
    explicit ChangeOrigins(QObject *parent = nullptr);
    ~ChangeOrigins() override;

    // What alone has changed the design since it was saved, in a few words; empty when the user has
    // changed it, or nobody knows.
    static QString only(const QString &designId);

private:
    void changed(const QString &designId);
    QString present(const QString &designId) const;

    // An empty text for the user.
    QHash<QString, QString> origins;
};
