#pragma once

#include <QByteArray>
#include <QString>

// Replacing a file's contents so that the file on disk is always either the
// old bytes or the new ones, whatever happens during the save: a full disk,
// a killed process, a power cut once the call has returned.
//
// The new bytes go to a temporary file in the same folder, which is synced
// and renamed over the target; the folder is synced after the rename. The
// temporary file has no name while it is written (O_TMPFILE) and gets one
// only for the rename, where the file system allows that; it holds an
// exclusive lock for its whole life, and a save removes the unlocked ones
// that an earlier, killed save left behind, so that no stale copy lingers
// beside the file.
//
// What the file was keeps:
// - its permission bits, and its owner and group where the process may set
//   them (root may; others keep their own user and may keep the group);
// - a symbolic link stays a link: the file it points to is replaced, in that
//   file's folder;
// - a hard link is not kept: the saved name gets a new file, and the other
//   names of the old one keep the old contents. Writing into the file in
//   place would keep the link but could leave it torn.
// A file that the process may not write (a read-only file, for anyone but
// root) is refused and left as it is, and so is anything that is no regular
// file: a folder, a FIFO, a device.

struct FileWriteFailure
{
    QString path;   // the file that was to be written
    QString reason; // what the system said, as one phrase
};

// One English sentence for a message: the file, the reason, and that the
// file on disk was not changed.
QString describeFileWriteFailure(const FileWriteFailure &failure);

// Replaces the contents of the file at `path` with `bytes`, creating it if
// need be. False, with `failure` filled (may be null), when the file could
// not be written; the file is then as it was.
bool replaceFileContents(const QString &path, const QByteArray &bytes, FileWriteFailure *failure);

// Prefix of the names of the temporary files of a save of `fileName`
// (without folder), which stay hidden in the folder.
QString temporaryPrefixFor(const QString &fileName);
