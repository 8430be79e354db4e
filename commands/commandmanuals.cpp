#include "commands/commandmanuals.h"

#include "commands/commandset.h"
#include "commands/manuals.h"

#include <QMap>

namespace commands {

QStringList nextWords(const QStringList &words)
{
    QStringList next;
    for (const Command &command : commandSet()) {
        if (words.isEmpty() || words.constFirst() != QLatin1StringView(command.word)
            || !command.manual)
            continue;
        const QString start = (words.sliced(1) << QString()).join(u' ');
        for (const QString &form : command.manual->forms()) {
            if (form.startsWith(start))
                next.append(form.sliced(start.size()).section(u' ', 0, 0));
        }
    }
    next.removeDuplicates();
    return next;
}

QList<CommandManual> commandManuals()
{
    QList<CommandManual> manuals;
    for (const Command &command : commandSet()) {
        QMap<QString, QString> calls;
        if (command.manual) {
            for (const UsageRow &row : command.manual->usage)
                calls.insert(QString::fromUtf8(row.key), QString::fromUtf8(row.help));
        }
        CommandManual manual {QString::fromUtf8(command.word), QString::fromUtf8(command.help), {}};
        for (auto call = calls.cbegin(); call != calls.cend(); ++call)
            manual.calls.append({call.key(), call.value()});
        manuals.append(manual);
    }
    return manuals;
}

} // namespace commands
