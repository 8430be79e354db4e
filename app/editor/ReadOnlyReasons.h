#pragma once

#include <QMap>
#include <QString>

// Why the text of a page may not be changed. Of several sources the first one is named.
class ReadOnlyReasons
{
public:
    enum Source { ComponentFile, Design, Permission, Caller };

    // A clause such as "it belongs to a design"; an empty one allows changes again. False when the
    // source said the same before.
    bool set(Source source, const QString &reason)
    {
        if (reasons.value(source) == reason)
            return false;
        reasons.insert(source, reason);
        return true;
    }

    // Empty when changes are allowed.
    QString first() const
    {
        for (const QString &reason : reasons) {
            if (!reason.isEmpty())
                return reason;
        }
        return {};
    }

private:
    QMap<Source, QString> reasons;
};
