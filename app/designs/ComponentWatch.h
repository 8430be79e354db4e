#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>

#include <memory>

namespace MorvalenCore::Interfaces {
class IDesign;
}
class FileWatch;
class NoticeBar;

// Follows the component files of the open designs, which other programs and other windows may
// write: a design without changes is read again, one with changes waits for the user, who is asked
// in a bar above the tree. Nothing is read while a command runs; it is looked at again then.
class ComponentWatch : public QObject
{
    Q_OBJECT

public:
    ComponentWatch(NoticeBar *bar, QObject *parent);
    ~ComponentWatch() override;

    // Looks at all files now, for who comes back from another program.
    void look();

private:
    void watchAll();
    void lookSoon();
    // False when the design waits for the user.
    bool follow(MorvalenCore::Interfaces::IDesign &design);
    void ask(const MorvalenCore::Interfaces::IDesign &design, const QString &problem);

    void reload(const QString &designId);
    void showDifference(const QString &designId);
    void overwrite(const QString &designId);
    void saveCopy(const QString &designId);

    NoticeBar *notice;
    std::shared_ptr<FileWatch> watch;
    // The files that are watched, by the id of their design.
    QHash<QString, QString> files;
    QTimer timer;
};
