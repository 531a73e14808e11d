// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "jet/file/Bytes.h"

namespace huebrush::jet {

/// A file that is open for reading. Every failure of the system is an Error that names the file and
/// the reason.
class File {
 public:
    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    virtual ~File() = default;

    virtual std::uint64_t size() = 0;
    /// Fills `out` from the place `at` on; the file's end before that is an error.
    virtual void read(std::uint64_t at, std::span<std::uint8_t> out) = 0;
    /// Whether the name under which the file was opened still leads to it, unwritten since.
    virtual bool isCurrent() = 0;
};

/// A file in the making; nobody sees it before it is published, and one that never is leaves
/// nothing behind.
class NewFile {
 public:
    NewFile() = default;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    virtual ~NewFile() = default;

    virtual void write(std::uint64_t at, ByteView bytes) = 0;
    /// Reads what was written.
    virtual void read(std::uint64_t at, std::span<std::uint8_t> out) = 0;
    /// Writes the file to the medium and gives it its name, in one step. Returns it, open for
    /// reading. Until this object ends, no other writer of ours can lock it.
    virtual std::unique_ptr<File> publish() = 0;
};

/// An exclusive lock against other writers, in this process and others; ends with the object. It is
/// on the file, not on the name.
class Lock {
 public:
    Lock() = default;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    virtual ~Lock() = default;

    /// A file that is to take the place of the locked one, with its rights. Publishing it is an
    /// error when, in this last moment, another program has the old file open for writing or has
    /// changed it since it was locked: then the old one stays. The lock outlives the new file.
    virtual std::unique_ptr<NewFile> replacement() = 0;
};

/// Files by name. Names are paths in UTF-8.
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
    /// A new file; an error, at once or when it is published, when the name is taken.
    virtual std::unique_ptr<NewFile> create(const std::string& name) = 0;
    /// The lock to hold while the file `name` is read in order to be replaced, until it is
    /// replaced. An error when the file may not be written or another program has it open for
    /// writing; waits for other holders of this lock.
    virtual std::unique_ptr<Lock> lock(const std::string& name) = 0;
    /// Removes a file; an error where it could not be locked.
    virtual void remove(const std::string& name) = 0;
    /// Makes a folder, and those that it is in, where they are missing.
    virtual void makeFolder(const std::string& name) = 0;
};

/// The files of this system.
FileSystem& systemFiles();

}  // namespace huebrush::jet
