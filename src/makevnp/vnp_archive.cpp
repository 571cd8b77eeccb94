#include "vnp_archive.h"

#include <QDir>
#include <QFile>
#include <zip.h>

namespace makevnp {

namespace {

// libzip takes UTF-8 paths on Windows and the local 8-bit encoding elsewhere.
QByteArray zipPath(const QString& path)
{
#ifdef Q_OS_WIN
    return path.toUtf8();
#else
    return QFile::encodeName(path);
#endif
}

QString zipError(zip_t* archive)
{
    return QString::fromLocal8Bit(zip_strerror(archive));
}

} // namespace

QString writeArchive(const QString& root, const QStringList& files, const QString& archive)
{
    const QString partial = archive + QStringLiteral(".part");
    QFile::remove(partial);
    int code = 0;
    zip_t* zip = zip_open(zipPath(partial).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!zip) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        const QString reason = QString::fromLocal8Bit(zip_error_strerror(&error));
        zip_error_fini(&error);
        return QStringLiteral("Cannot create \"%1\": %2").arg(partial, reason);
    }
    for (const QString& relative : files) {
        const QByteArray source = zipPath(root + u'/' + relative);
        zip_source_t* data = zip_source_file(zip, source.constData(), 0, -1 /* to the end */);
        if (!data || zip_file_add(zip, relative.toUtf8().constData(), data, ZIP_FL_ENC_UTF_8) < 0) {
            const QString reason = zipError(zip);
            if (data)
                zip_source_free(data);
            zip_discard(zip);
            QFile::remove(partial);
            return QStringLiteral("Cannot add \"%1\" to the archive: %2").arg(relative, reason);
        }
    }
    if (zip_close(zip) < 0) {
        const QString reason = zipError(zip);
        zip_discard(zip);
        QFile::remove(partial);
        return QStringLiteral("Cannot write \"%1\": %2").arg(archive, reason);
    }
    QFile::remove(archive);
    if (!QFile::rename(partial, archive)) {
        QFile::remove(partial);
        return QStringLiteral("Cannot move the archive into place as \"%1\"").arg(archive);
    }
    return {};
}

} // namespace makevnp
