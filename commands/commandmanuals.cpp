#include "commands/commandmanuals.h"

#include "commands/commandset.h"
#include "commands/manuals.h"

#include <QMap>

namespace commands {

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
