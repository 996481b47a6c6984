#include "access/compactfile.h"

#include "core/error.h"
#include "phonebook/store/dao.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace mAccess {

namespace {

QString stem(const QString& path) {
    return path.left(path.size() - 5);
}

QString extension(const QString& path) {
    return path.right(5);
}

qint32 jetOfErrno(int e) {
    if (e == ENOSPC || e == EDQUOT) return dao::errDiskFull;
    if (e == EACCES || e == EPERM) return dao::errPermission;
    return dao::errPathFile;
}

// Flushes a file or a folder to the disk; a failure to sync is no failure of the compact.
void syncPath(const QString& path, bool folder) {
    const int fd =
        ::open(QFile::encodeName(path).constData(), (folder ? O_DIRECTORY : 0) | O_RDONLY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

QString quoted(const QString& text) {
    QString q = text;
    q.replace(QLatin1Char('\''), QStringLiteral("''"));
    return QLatin1Char('\'') + q + QLatin1Char('\'');
}

struct StepCounter {
    int limit = 0;
    int steps = 0;
    bool stopped = false;
};

int countSteps(void* data) {
    auto* c = static_cast<StepCounter*>(data);
    if (++c->steps < c->limit) return 0;
    c->stopped = true;
    return 1;
}

} // namespace

CompactHooks& CompactTestHooks() {
    static CompactHooks hooks;
    return hooks;
}

QString TempName(const QString& path) {
    return stem(path) + QStringLiteral("_Temp") + extension(path);
}

QString BackupName(const QString& path) {
    return stem(path) + QStringLiteral("_Backup") + extension(path);
}

QString FreeBackupName(const QString& path, bool EraseOld) {
    QString name = BackupName(path);
    if (EraseOld) return name;
    for (int n = 1; QFileInfo::exists(name); ++n)
        name = stem(path) + QStringLiteral("_Backup(%1)").arg(n) + extension(path);
    return name;
}

void CopyFileSafely(const QString& from, const QString& to) {
    HUNT_PLACE("mAccess.CopyFileSafely(from, to)", from, to);
    QFile in(from);
    if (!in.open(QIODevice::ReadOnly))
        throw dao::DbError(jetOfErrno(errno),
                           QStringLiteral("Cannot read '%1': %2").arg(from, in.errorString()),
                           QStringLiteral("Kelvarin"));
    QSaveFile out(to);
    if (!out.open(QIODevice::WriteOnly))
        throw dao::DbError(jetOfErrno(errno),
                           QStringLiteral("Cannot write '%1': %2").arg(to, out.errorString()),
                           QStringLiteral("Kelvarin"));
    QByteArray chunk;
    while (!(chunk = in.read(1 << 20)).isEmpty()) {
        errno = 0;
        if (out.write(chunk) != chunk.size()) {
            const int e = errno;
            out.cancelWriting();
            throw dao::DbError(jetOfErrno(e),
                               QStringLiteral("Cannot write '%1': %2").arg(to, out.errorString()),
                               QStringLiteral("Kelvarin"));
        }
    }
    errno = 0;
    if (in.error() != QFileDevice::NoError || !out.commit()) {
        const int e = errno;
        throw dao::DbError(jetOfErrno(e), QStringLiteral("Cannot copy '%1' to '%2'").arg(from, to),
                           QStringLiteral("Kelvarin"));
    }
}

bool CompactFile(const QString& path, const QString& temp) {
    HUNT_PLACE("mAccess.CompactFile(path, temp)", path, temp);
    const CompactHooks& hooks = CompactTestHooks();
    try {
        dao::Workspace ws;
        dao::Database db = ws.OpenDatabase(path, true, true);
        StepCounter counter{hooks.failAfterSteps};
        if (counter.limit > 0) sqlite3_progress_handler(db.handle(), 100, &countSteps, &counter);
        try {
            db.ExecuteNative(QStringLiteral("VACUUM INTO ") + quoted(QFileInfo(temp).absoluteFilePath()));
        } catch (const HuntERR::Error& e) {
            if (!counter.stopped) throw;
            throw dao::DbError(hooks.failNumber,
                               QStringLiteral("The copy was broken off: ") + e.Description());
        }
        sqlite3_progress_handler(db.handle(), 0, nullptr, nullptr);
        db.Close();
        ws.Close();
    } catch (...) {
        QFile::remove(temp); // a partial copy is of no use
        throw;
    }
    if (!QFileInfo::exists(temp)) return false;
    syncPath(temp, false);
    if (hooks.beforeRename) hooks.beforeRename();
    if (::rename(QFile::encodeName(temp).constData(), QFile::encodeName(path).constData()) != 0) {
        const int e = errno;
        QFile::remove(temp);
        throw dao::DbError(jetOfErrno(e),
                           QStringLiteral("Cannot rename '%1' to '%2': %3").arg(temp, path, strerror(e)),
                           QStringLiteral("Kelvarin"));
    }
    if (hooks.afterRename) hooks.afterRename();
    syncPath(QFileInfo(path).absolutePath(), true);
    return true;
}

} // namespace mAccess
