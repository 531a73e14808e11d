// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "files/Lock.h"
#include "files/OpenFile.h"

namespace huebrush::files {

/// A file in the making, which appears under its name all at once. Until then it has no name at
/// all, if the system supports that, so that nothing remains however this process ends. Otherwise
/// it has a temporary name in the same folder, which is removed with the object or, after a process
/// was killed, when the next file is made for the same name. Every failure is an Error.
class NewFile {
 public:
    /// For a name that is free, with the rights that new files get.
    explicit NewFile(const std::string& name);
    /// In place of a locked file, with its owner, rights and attributes, as far as the system
    /// allows. The lock outlives this object.
    explicit NewFile(const Lock& replaced);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile();

    /// Writes at the place `at`.
    void write(std::uint64_t at, std::span<const std::uint8_t> bytes) const;

    /// Reads what was written; the end before that is an Error.
    void read(std::uint64_t at, std::span<std::uint8_t> out) const;

    /// Flushes the content to the disk, gives the file its name, and flushes that to the disk, too;
    /// nothing can be written afterwards. Returns the same file, open for reading.
    ///
    /// It is an Error if the name is taken, or if another program has the file to be replaced open
    /// for writing at this last moment, has locked it, or has changed it since it was locked: then
    /// everything stays as it was.
    OpenFile publish();

 private:
    class Native;

    std::unique_ptr<Native> native_;
};

}  // namespace huebrush::files
