#pragma once

#include "app/editor/diskfile.h"
#include "app/editor/lineends.h"
#include "app/editor/TextCoding.h"

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
    enum class Disk { Same, Changed, Missing };

    // Larger files are not opened: the editor would take some ten times their size in memory.
    static constexpr qint64 sizeLimit = 32 * 1024 * 1024;
    // The longest line; longer ones make every step of the cursor slow.
    static constexpr qsizetype lineLimit = 250'000;

    // The path is canonical.
    explicit TextFile(const QString &path, QObject *parent = nullptr);
    ~TextFile() override;

    const QString &path() const { return thePath; }

    // Reads the file, which is then what is known of it. Nothing, with a sentence in *error and
    // what is known unchanged, when it cannot be read or is not text.
    std::optional<lineends::Lines> read(QString *error);

    // The lines that are on disk now, which changes nothing that is known.
    std::optional<QString> textOnDisk(QString *error) const;

    // Replaces the file, whatever is there. False, with a sentence in *error and the file as it
    // was, when that cannot be.
    bool write(const QString &text, QString *error);

    // Writes the same bytes to another file.
    bool writeCopy(const QString &copy, const QString &text, QString *error) const;

    // Compares what is on disk with what is known, byte by byte unless the file's stamp is the
    // known one and trust is allowed.
    enum class Trust { Stamp, Nothing };
    Disk look(Trust trust);

    // Takes what is on disk now for known.
    void accept();

    // Whether the user may write to the file, were it not for anything else.
    bool isWritable() const;

    // "UTF-8, LF" and the like.
    QString form() const;

Q_SIGNALS:
    // Something may have happened on disk.
    void touched(TextFile::Trust trust);

private:
    struct Contents
    {
        diskfile::Content content;
        TextCoding coding;
        lineends::Lines lines;
    };

    std::optional<Contents> load(QString *error) const;
    void touch(Trust trust);
    void know(const QByteArray &bytes, const diskfile::Stamp &stamp);
    std::optional<QByteArray> encode(const QString &text, QString *error) const;

    const QString thePath;
    TextCoding theCoding;
    QString ends;
    QByteArray knownHash;
    diskfile::Stamp knownStamp;
    std::shared_ptr<FileWatch> watch;
    QTimer *touchTimer;
    Trust pending = Trust::Stamp;
};
