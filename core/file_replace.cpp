#include "core/file_replace.h"

#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// What went wrong, as errno or as a phrase of our own.
struct Trouble
{
    int error = 0;
    const char *what = nullptr;
};

bool fail(Trouble *trouble, int error, const char *what = nullptr)
{
    trouble->error = error;
    trouble->what = what;
    return false;
}

QByteArray folderOf(const QByteArray &path)
{
    const int slash = path.lastIndexOf('/');
    if (slash < 0)
        return QByteArrayLiteral(".");
    return slash == 0 ? QByteArrayLiteral("/") : path.left(slash);
}

QByteArray nameOf(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

// Follows symbolic links to the name of the file they end at, which need not
// exist yet.
bool followLinks(QByteArray *path, Trouble *trouble)
{
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st;
        if (::lstat(path->constData(), &st) != 0)
            return errno == ENOENT || fail(trouble, errno);
        if (!S_ISLNK(st.st_mode))
            return true;
        char target[PATH_MAX];
        const ssize_t n = ::readlink(path->constData(), target, sizeof target);
        if (n < 0 || n >= ssize_t(sizeof target))
            return fail(trouble, n < 0 ? errno : ENAMETOOLONG);
        const QByteArray link(target, int(n));
        *path = link.startsWith('/') ? link : folderOf(*path) + '/' + link;
    }
    return fail(trouble, ELOOP);
}

// The file that is there now, if any: it must be a regular file that this
// process may write.
bool checkTarget(const QByteArray &path, struct stat *old, bool *exists, Trouble *trouble)
{
    *exists = ::stat(path.constData(), old) == 0;
    if (!*exists)
        return errno == ENOENT || fail(trouble, errno);
    if (S_ISDIR(old->st_mode))
        return fail(trouble, EISDIR);
    if (!S_ISREG(old->st_mode))
        return fail(trouble, 0, "it is not a regular file");
    return ::access(path.constData(), W_OK) == 0 || fail(trouble, errno);
}

QByteArray randomSuffix()
{
    static const char letters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    QByteArray suffix(6, 'x');
    for (char &c : suffix)
        c = letters[QRandomGenerator::global()->bounded(int(sizeof letters - 1))];
    return suffix;
}

// The mask the process creates files with, read without changing it.
mode_t currentUmask()
{
    if (FILE *status = std::fopen("/proc/self/status", "re")) {
        char line[256];
        unsigned mask = 0;
        bool found = false;
        while (!found && std::fgets(line, sizeof line, status))
            found = std::sscanf(line, "Umask: %o", &mask) == 1;
        std::fclose(status);
        if (found)
            return mode_t(mask);
    }
    const mode_t mask = ::umask(022);
    ::umask(mask);
    return mask;
}

bool sameFile(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// A named temporary file, locked, for file systems without O_TMPFILE.
int openNamedTemporary(const QByteArray &stem, QByteArray *name, Trouble *trouble)
{
    for (int tries = 0; tries < 100; ++tries) {
        QByteArray pattern = stem + "XXXXXX";
        const int fd = ::mkostemp(pattern.data(), O_CLOEXEC);
        if (fd < 0) {
            fail(trouble, errno);
            return -1;
        }
        struct stat mine, named;
        // Another save's cleaning may have found it unlocked for a moment.
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0 && ::fstat(fd, &mine) == 0
            && ::lstat(pattern.constData(), &named) == 0 && sameFile(mine, named)) {
            *name = pattern;
            return fd;
        }
        ::close(fd);
    }
    fail(trouble, EEXIST);
    return -1;
}

// A locked temporary file in `folder`, without a name where the file system
// allows it (then `name` stays empty).
int openTemporary(const QByteArray &folder, const QByteArray &stem, QByteArray *name,
                  Trouble *trouble)
{
    const int fd = ::open(folder.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (fd >= 0) {
        ::flock(fd, LOCK_EX);
        return fd;
    }
    if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)
        return openNamedTemporary(stem, name, trouble);
    fail(trouble, errno);
    return -1;
}

// Gives the file of `fd` a name that starts with `stem`.
bool nameTemporary(int fd, const QByteArray &stem, QByteArray *name, Trouble *trouble)
{
    char self[64];
    std::snprintf(self, sizeof self, "/proc/self/fd/%d", fd);
    for (int tries = 0; tries < 100; ++tries) {
        *name = stem + randomSuffix();
        if (::linkat(AT_FDCWD, self, AT_FDCWD, name->constData(), AT_SYMLINK_FOLLOW) == 0)
            return true;
        if (errno == ENOENT && ::linkat(fd, "", AT_FDCWD, name->constData(), AT_EMPTY_PATH) == 0)
            return true; // no /proc: allowed to processes that may read any file
        if (errno != EEXIST)
            return fail(trouble, errno);
    }
    return fail(trouble, EEXIST);
}

// The permission bits of the old file, and its owner and group where the
// process may set them; a new file gets what the process's mask leaves.
void takeOverOwnerAndMode(int fd, const struct stat *old)
{
    if (old == nullptr) {
        ::fchmod(fd, 0666 & ~currentUmask());
        return;
    }
    if (::fchown(fd, old->st_uid, old->st_gid) != 0)
        (void)::fchown(fd, uid_t(-1), old->st_gid);
    ::fchmod(fd, old->st_mode & 07777);
}

bool writeAll(int fd, const QByteArray &bytes, Trouble *trouble)
{
    const char *p = bytes.constData();
    qint64 left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, p, size_t(qMin<qint64>(left, 1 << 30)));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return fail(trouble, n < 0 ? errno : ENOSPC);
        p += n;
        left -= n;
    }
    return ::fsync(fd) == 0 || fail(trouble, errno);
}

void syncFolder(const QByteArray &folder)
{
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// Temporary files of earlier saves of the same file, left by a process that
// was killed between naming one and renaming it: nobody holds their lock.
void removeStaleTemporaries(const QByteArray &folder, const QByteArray &prefix)
{
    DIR *dir = ::opendir(folder.constData());
    if (dir == nullptr)
        return;
    while (const dirent *entry = ::readdir(dir)) {
        if (std::strncmp(entry->d_name, prefix.constData(), size_t(prefix.size())) != 0)
            continue;
        const QByteArray path = folder + '/' + entry->d_name;
        const int fd = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0)
            continue;
        struct stat held, named;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0 && ::fstat(fd, &held) == 0 && S_ISREG(held.st_mode)
            && ::lstat(path.constData(), &named) == 0 && sameFile(held, named))
            ::unlink(path.constData());
        ::close(fd);
    }
    ::closedir(dir);
}

// Writes the temporary file and renames it over `target`.
bool replace(const QByteArray &target, const QByteArray &bytes, const struct stat *old,
             Trouble *trouble)
{
    const QByteArray folder = folderOf(target);
    const QByteArray stem =
        folder + '/' + QFile::encodeName(temporaryPrefixFor(QFile::decodeName(nameOf(target))));
    removeStaleTemporaries(folder, nameOf(stem));
    QByteArray name;
    const int fd = openTemporary(folder, stem, &name, trouble);
    if (fd < 0)
        return false;
    takeOverOwnerAndMode(fd, old);
    bool ok = writeAll(fd, bytes, trouble)
              && (!name.isEmpty() || nameTemporary(fd, stem, &name, trouble));
    if (ok && ::rename(name.constData(), target.constData()) != 0)
        ok = fail(trouble, errno);
    if (!ok && !name.isEmpty())
        ::unlink(name.constData());
    ::close(fd); // gives up the lock
    if (ok)
        syncFolder(folder);
    return ok;
}

} // namespace

QString temporaryPrefixFor(const QString &fileName)
{
    return QLatin1Char('.') + fileName + QStringLiteral(".save-");
}

QString describeFileWriteFailure(const FileWriteFailure &failure)
{
    return QStringLiteral("File '") + failure.path + QStringLiteral("' was not written: ")
           + failure.reason + QStringLiteral("; the file on disk is unchanged.");
}

bool replaceFileContents(const QString &path, const QByteArray &bytes, FileWriteFailure *failure)
{
    Trouble trouble;
    QByteArray target = QFile::encodeName(path);
    struct stat old;
    bool exists = false;
    bool ok = !path.isEmpty() || fail(&trouble, 0, "the file has no name");
    ok = ok && followLinks(&target, &trouble) && checkTarget(target, &old, &exists, &trouble);
    ok = ok && replace(target, bytes, exists ? &old : nullptr, &trouble);
    if (!ok && failure) {
        failure->path = path;
        failure->reason = trouble.what ? QString::fromLatin1(trouble.what)
                                       : QString::fromLocal8Bit(std::strerror(trouble.error));
    }
    return ok;
}
