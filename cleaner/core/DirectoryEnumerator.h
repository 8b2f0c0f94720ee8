#pragma once

#include "cleaner/core/ResourceValues.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

// A depth-first, pre-order walk below one folder, with the meaning of the
// platform's directory enumerator: `level` is 1 for the folder's own entries,
// `skipDescendants` keeps the walk out of the item returned last, and the
// three options prune packages, subfolders and hidden items. Symbolic links
// are returned as themselves and never followed. Each item costs one
// fstatat; folders are opened relative to their parent's descriptor.
class DirectoryEnumerator {
public:
    enum Option {
        NoOptions = 0,
        SkipsSubdirectoryDescendants = 1 << 0,
        SkipsPackageDescendants = 1 << 1,
        SkipsHiddenFiles = 1 << 2,
    };

    // A folder that could not be opened, in the words of the platform.
    struct Error {
        QByteArray path;
        int code = 0; // errno
        QString localizedDescription;
    };
    // Told of each folder that cannot be opened, the root included; answers
    // whether the walk goes on.
    using ErrorHandler = std::function<bool(const Error &)>;

    // nullptr when the root cannot be opened as a folder (missing, a link, unreadable).
    static std::unique_ptr<DirectoryEnumerator>
    create(const QByteArray &rootPath, int options = NoOptions, ErrorHandler errorHandler = {});
    ~DirectoryEnumerator();
    DirectoryEnumerator(const DirectoryEnumerator &) = delete;
    DirectoryEnumerator &operator=(const DirectoryEnumerator &) = delete;

    // Moves to the next item; false at the end.
    bool next();
    // The current item's values, built on first ask (size walks never need them).
    const ResourceValues &values() const;
    const QByteArray &path() const { return m_path; }
    // Whether the current item could be read (false: only path and name are known).
    bool currentReadable() const { return m_currentReadable; }
    bool isDirectory() const { return m_currentReadable && S_ISDIR(m_stat.st_mode); }
    // The size the walks count: the file size of anything that is not a folder.
    std::optional<qint64> fileSize() const
    {
        if (!m_currentReadable || S_ISDIR(m_stat.st_mode))
            return std::nullopt;
        return qint64(m_stat.st_size);
    }
    const struct stat &stat() const { return m_stat; }
    // The open folder that holds the current item, valid until the next call
    // to next(): opening the item relative to it spares the kernel a lookup
    // of every component of the path.
    int folderDescriptor() const;

    int level() const { return m_currentLevel; }
    void skipDescendants() { m_skipPending = true; }

private:
    struct Frame;
    DirectoryEnumerator(int options);
    bool descendIntoPending();

    int m_options;
    ErrorHandler m_errorHandler;
    std::vector<std::unique_ptr<Frame>> m_stack;
    QByteArray m_path;
    struct stat m_stat {};
    mutable ResourceValues m_values;
    mutable bool m_valuesBuilt = false;
    bool m_currentReadable = false;
    int m_currentLevel = 0;
    bool m_pendingDescend = false;
    bool m_skipPending = false;
};
