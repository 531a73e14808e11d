// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "files/Lock.h"
#include "files/OpenFile.h"

namespace huebrush::files {

/// A file in the making, which appears under its name all at once. Until then it has no name where
/// the system knows files without one, so that nothing is left of it whatever becomes of this
/// process; elsewhere it has a name of its own beside the one to come, which goes with the object,
/// and after a killed process with the next file that is made for the same name. Every failure is
/// an Error.
class NewFile {
 public:
    /// Of a name that is free, with the rights that new files have.
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

    /// Brings the content to the medium, gives the file its name, and brings that to the medium;
    /// then nothing more is written. Returns the very file, open for reading.
    ///
    /// A name that is taken is an Error, and so is a file to be replaced that, in this last moment,
    /// another program has open for writing, has locked, or has changed since it was locked: then
    /// everything stays as it was.
    OpenFile publish();

 private:
    class Native;

    std::unique_ptr<Native> native_;
};

}  // namespace huebrush::files
