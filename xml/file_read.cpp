#include "xml/file_read.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString quotedPath(const QString &path)
{
    return QStringLiteral("File '") + path + QLatin1Char('\'');
}

QString fileTypeName(unsigned type)
{
    switch (type) {
    case S_IFIFO:
        return QStringLiteral("a FIFO (named pipe)");
    case S_IFCHR:
        return QStringLiteral("a character device");
    case S_IFBLK:
        return QStringLiteral("a block device");
    case S_IFSOCK:
        return QStringLiteral("a socket");
    default:
        return QStringLiteral("a special file");
    }
}

QString problemText(const XmlFileFailure &f)
{
    switch (f.problem) {
    case XmlFileProblem::none:
        break;
    case XmlFileProblem::notFound:
        return QStringLiteral(" does not exist.");
    case XmlFileProblem::folder:
        return QStringLiteral(" is a folder, not a file.");
    case XmlFileProblem::notRegular:
        return QStringLiteral(" is ") + fileTypeName(f.fileType)
               + QStringLiteral(", not a regular file.");
    case XmlFileProblem::unreadable:
        return QStringLiteral(" cannot be read: ") + QString::fromLocal8Bit(strerror(f.errorNumber))
               + QLatin1Char('.');
    case XmlFileProblem::tooLarge:
        return QStringLiteral(" is larger than %1 MiB, the most that is read of a file.")
            .arg(xmlFileSizeLimit >> 20);
    case XmlFileProblem::empty:
        return QStringLiteral(" is empty.");
    case XmlFileProblem::notXml:
        return QStringLiteral(" is not XML that can be read: error at line %1, column %2.")
            .arg(f.parse.line)
            .arg(f.parse.column);
    case XmlFileProblem::rootMissing:
        return QStringLiteral(" has no element ") + QString::fromUtf8(f.root) + QLatin1Char('.');
    }
    return QString();
}

bool fail(XmlFileFailure *failure, const QString &path, XmlFileProblem problem, int error = 0,
          unsigned type = 0)
{
    setXmlFileFailure(failure, path, problem);
    if (failure) {
        failure->errorNumber = error;
        failure->fileType = type;
    }
    return false;
}

// What the file's type says before anything is opened.
bool acceptType(const QString &path, const struct stat &st, XmlFileFailure *failure)
{
    if (S_ISDIR(st.st_mode))
        return fail(failure, path, XmlFileProblem::folder);
    if (!S_ISREG(st.st_mode))
        return fail(failure, path, XmlFileProblem::notRegular, 0, st.st_mode & S_IFMT);
    if (st.st_size > xmlFileSizeLimit)
        return fail(failure, path, XmlFileProblem::tooLarge);
    return true;
}

// Reads to the end, but no further than one byte beyond the limit, so that
// a file that grows while it is read is refused as well.
bool readAllOf(int fd, const QString &path, qint64 sizeHint, QByteArray *bytes,
               XmlFileFailure *failure)
{
    QByteArray data;
    data.resize(static_cast<int>(qMin(sizeHint, xmlFileSizeLimit) + 1));
    qint64 got = 0;
    for (;;) {
        if (got == data.size()) {
            if (got > xmlFileSizeLimit)
                return fail(failure, path, XmlFileProblem::tooLarge);
            data.resize(static_cast<int>(qMin(got * 2, xmlFileSizeLimit + 1)));
        }
        const ssize_t n = ::read(fd, data.data() + got, size_t(data.size() - got));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return fail(failure, path, XmlFileProblem::unreadable, errno);
        if (n == 0)
            break;
        got += n;
    }
    data.resize(static_cast<int>(got));
    *bytes = data;
    return true;
}

} // namespace

void setXmlFileFailure(XmlFileFailure *failure, const QString &path, XmlFileProblem problem)
{
    if (failure == nullptr)
        return;
    *failure = XmlFileFailure();
    failure->problem = problem;
    failure->path = path;
}

QString describeXmlFileFailure(const XmlFileFailure &failure)
{
    if (failure.problem == XmlFileProblem::none)
        return QString();
    return quotedPath(failure.path) + problemText(failure);
}

bool readWholeFile(const QString &path, QByteArray *bytes, XmlFileFailure *failure)
{
    bytes->clear();
    const QByteArray name = QFile::encodeName(path);
    struct stat st;
    if (::stat(name.constData(), &st) != 0) {
        const int error = errno;
        const bool missing = error == ENOENT || error == ENOTDIR;
        return fail(failure, path, missing ? XmlFileProblem::notFound : XmlFileProblem::unreadable,
                    error);
    }
    if (!acceptType(path, st, failure))
        return false;
    // Non-blocking, so that a file swapped for a FIFO since the look above
    // cannot hold the open; the type is then checked again on what was opened.
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        return fail(failure, path, XmlFileProblem::unreadable, errno);
    bool ok = ::fstat(fd, &st) == 0 ? acceptType(path, st, failure)
                                    : fail(failure, path, XmlFileProblem::unreadable, errno);
    if (ok)
        ok = readAllOf(fd, path, st.st_size, bytes, failure);
    ::close(fd);
    return ok;
}
