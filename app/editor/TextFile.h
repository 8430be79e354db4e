#pragma once

#include "app/editor/lineends.h"
#include "app/editor/TextCoding.h"

#include <Qtilities/KnownFile.h>

#include <QObject>

#include <memory>

class FileWatch;
class QTimer;

// The file behind a page of text: what was read of it or written to it last, and whether that is
// still what is on disk.
class TextFile : public QObject
{
    Q_OBJECT

public:
    using Status = Qtilities::Core::Status;
    template <typename Value>
    using Result = Qtilities::Core::Result<Value>;

    using Disk = Qtilities::Core::KnownFile::Disk;
    using Trust = Qtilities::Core::KnownFile::Trust;

    // Larger files are not opened: the editor would take some ten times their size in memory.
    static constexpr qint64 sizeLimit = 32 * 1024 * 1024;
    // The longest line; longer ones make every step of the cursor slow.
    static constexpr qsizetype lineLimit = 250'000;

    // The path is canonical.
    explicit TextFile(const QString &path, QObject *parent = nullptr);
    ~TextFile() override;

    const QString &path() const { return file.path(); }

    // Reads the file, which is then what is known of it. What is known stays when it cannot be read
    // or is not text.
    Result<lineends::Lines> read();

    // The lines that are on disk now, which changes nothing that is known.
    Result<QString> textOnDisk() const;

    // Replaces the file, whatever is there. The file stays as it was when that cannot be.
    Status write(const QString &text);

    // Writes the same bytes to another file.
    Status writeCopy(const QString &copy, const QString &text) const;

    // Compares what is on disk with what is known.
    Disk look(Trust trust);

    // Takes what is on disk now for known.
    void accept();

    // What is known of the file, as bytes that can be kept, and knowing what they tell.
    QByteArray known() const { return file.mark(); }
    void know(const QByteArray &mark) { file.knowMark(mark); }

    // Whether the user may write to the file, were it not for anything else.
    bool isWritable() const;

    // How the text is written from now on; another one comes with what is read.
    TextCoding coding() const { return theCoding; }
    void setCoding(TextCoding coding) { theCoding = coding; }

    // "UTF-8, LF" and the like.
    QString form() const;

Q_SIGNALS:
    // Something may have happened on disk.
    void touched(TextFile::Trust trust);

private:
    struct Contents
    {
        Qtilities::Core::KnownFile::Content content;
        TextCoding coding;
        lineends::Lines lines;
    };

    Result<Contents> load() const;
    Status cannotOpen(const QString &reason) const;
    void touch(Trust trust);
    Result<QByteArray> encode(const QString &text) const;

    Qtilities::Core::KnownFile file;
    TextCoding theCoding;
    QString ends;
    std::shared_ptr<FileWatch> watch;
    QTimer *touchTimer;
    Trust pending = Trust::Stamp;
};
