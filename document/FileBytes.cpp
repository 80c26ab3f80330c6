#include "document/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <vector>

namespace morvane {
namespace {

FileError SystemError(int error) {
    return FileError(std::generic_category().message(error), error == ENOENT);
}

// Closes a descriptor when it goes out of scope.
struct Descriptor {
    int fd = -1;
    ~Descriptor() {
        if (fd >= 0)
            ::close(fd);
    }
};

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    if (slash == 0)
        return "/";
    return path.substr(0, slash);
}

}  // namespace

std::string ShortFileName(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string ReadFileBytes(const std::string& path) {
    Descriptor file;
    file.fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file.fd < 0)
        throw SystemError(errno);
    struct stat info {};
    if (::fstat(file.fd, &info) != 0)
        throw SystemError(errno);
    if (S_ISDIR(info.st_mode))
        throw SystemError(EISDIR);
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(file.fd, buffer, sizeof buffer);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw SystemError(errno);
        }
        if (n == 0)
            break;
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    return bytes;
}

void ReplaceFileContents(const std::string& path, std::string_view bytes) {
    if (path.empty())
        throw SystemError(ENOENT);
    std::string pattern = FolderOf(path) + "/." + ShortFileName(path) + ".XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    Descriptor temp;
    temp.fd = ::mkstemp(name.data());
    if (temp.fd < 0)
        throw SystemError(errno);
    const std::string tempPath(name.data());
    auto fail = [&](int error) {
        ::close(temp.fd);
        temp.fd = -1;
        ::unlink(tempPath.c_str());
        return SystemError(error);
    };

    // The new file takes the old one's permissions, or those a new file would get.
    struct stat old {};
    if (::stat(path.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode))
            throw fail(EISDIR);
        ::fchmod(temp.fd, old.st_mode & 07777);
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        ::fchmod(temp.fd, 0666 & ~mask);
    }

    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(temp.fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw fail(errno);
        }
        written += static_cast<std::size_t>(n);
    }
    if (::fsync(temp.fd) != 0)
        throw fail(errno);
    if (::close(temp.fd) != 0) {
        temp.fd = -1;
        const int error = errno;
        ::unlink(tempPath.c_str());
        throw SystemError(error);
    }
    temp.fd = -1;
    if (::rename(tempPath.c_str(), path.c_str()) != 0) {
        const int error = errno;
        ::unlink(tempPath.c_str());
        throw SystemError(error);
    }
}

}  // namespace morvane
