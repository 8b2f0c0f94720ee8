#pragma once

#include <QByteArray>
#include <memory>

// A folder held open while its files wait to be read, so that each file is
// opened by its name alone: opening by the whole path makes the kernel look
// up every folder on the way again, which cost more than reading the small
// files themselves. Folders are held within a budget of descriptors; past it
// files are opened by their whole path.
class OpenFolder {
public:
    // Holds a duplicate of the open folder fd; nullptr past the budget or on failure.
    static std::shared_ptr<const OpenFolder> hold(int fd);
    ~OpenFolder();
    OpenFolder(const OpenFolder &) = delete;
    OpenFolder &operator=(const OpenFolder &) = delete;

    // Opens the file at path for reading, relative to folder when there is one
    // (path must then be a file of that folder). -1 on failure, errno set.
    static int openFile(const OpenFolder *folder, const QByteArray &path);
    // How many folders may be held at once: half of the descriptors the
    // process may open, less a reserve for the files being compared.
    static int budget();

private:
    explicit OpenFolder(int fd) : m_fd(fd) {}
    int m_fd;
};
