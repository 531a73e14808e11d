#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "jet/file/Bytes.h"

namespace huebrush::jet {

/// An open file. Every failure of the system is an Error that names the file and the reason.
class File {
 public:
    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    virtual ~File() = default;

    virtual std::uint64_t size() = 0;
    /// Fills `out` from the place `at` on; the file's end before that is an error.
    virtual void read(std::uint64_t at, std::span<std::uint8_t> out) = 0;
    /// Writes at the place `at`; only for a file that was created by this object.
    virtual void write(std::uint64_t at, ByteView bytes) = 0;
    /// Returns when all that was written is on the medium.
    virtual void sync() = 0;
    /// Whether the name under which the file was opened still leads to it.
    virtual bool isCurrent() = 0;
};

/// An exclusive lock against other writers, in this process and others; ends with the object.
class Lock {
 public:
    Lock() = default;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    virtual ~Lock() = default;
};

/// Files by name, and the few things done with whole files. Names are paths in UTF-8.
class FileSystem {
 public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// The name with all symbolic links followed, so that a replaced file is the real one.
    virtual std::string resolve(const std::string& name) = 0;
    virtual bool exists(const std::string& name) = 0;
    virtual std::unique_ptr<File> open(const std::string& name) = 0;
    /// A new, empty file; an error when the name is taken. With `like`, its rights are those of
    /// that file.
    virtual std::unique_ptr<File> create(const std::string& name, const std::string& like) = 0;
    /// Gives a file another name in one step; whatever had that name is gone.
    virtual void replace(const std::string& from, const std::string& to) = 0;
    /// As replace, but an error when the new name is taken.
    virtual void moveNew(const std::string& from, const std::string& to) = 0;
    virtual void remove(const std::string& name) = 0;
    /// Brings the names in the folder of `name` to the medium.
    virtual void syncFolder(const std::string& name) = 0;
    /// The lock to hold while the file `name` is read in order to be replaced, until it is
    /// replaced. It is on the file, not on the name, and stays when the file gets another one. An
    /// error when the file may not be written or another program has it open for writing; waits
    /// for other holders of this lock.
    virtual std::unique_ptr<Lock> lock(const std::string& name) = 0;
};

/// The files of this system.
FileSystem& systemFiles();

}  // namespace huebrush::jet
