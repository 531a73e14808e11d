// SPDX-License-Identifier: MPL-2.0

#include "files/NewFile.h"

#include <algorithm>

#include "files/Beside.h"
#include "files/Error.h"
#include "files/Names.h"
#include "files/Waiting.h"
#include "files/win32/Attributes.h"
#include "files/win32/NativeFiles.h"

namespace huebrush::files {

namespace {

/// Removes a file beside another one if the process that made it is gone. Whether it was: its maker
/// has it open all the time.
bool removeDead(const std::string& beside) {
    return static_cast<bool>(openExisting(beside, DELETE, 0, FILE_FLAG_DELETE_ON_CLOSE));
}

/// 0, or the system's number.
int rename(const std::string& from, const std::string& to, DWORD how) {
    const BOOL done = ::MoveFileExW(nativeName(from).c_str(), nativeName(to).c_str(),
                                    how | MOVEFILE_WRITE_THROUGH);
    return done != 0 ? 0 : lastReason();
}

}  // namespace

class NewFile::Native {
 public:
    explicit Native(std::string name);
    explicit Native(const Lock& replaced);
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native();

    void write(std::uint64_t at, std::span<const std::uint8_t> bytes) const;
    void read(std::uint64_t at, std::span<std::uint8_t> out) const;
    OpenFile publish();

 private:
    void make();
    void appear();
    void replace();
    bool tryToReplace();

    std::string name_;
    const Lock::Native* replaced_ = nullptr;
    /// Its temporary name; empty once it has appeared.
    std::string beside_;
    Handle writing_;
    /// Open until the end, so that nobody takes the file for an abandoned one.
    Handle reading_;
    Claim claim_;
};

NewFile::NewFile(const std::string& name) : native_(std::make_unique<Native>(name)) {}
NewFile::NewFile(const Lock& replaced) : native_(std::make_unique<Native>(replaced)) {}
NewFile::~NewFile() = default;

void NewFile::write(std::uint64_t at, std::span<const std::uint8_t> bytes) const {
    native_->write(at, bytes);
}

void NewFile::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    native_->read(at, out);
}

OpenFile NewFile::publish() {
    return native_->publish();
}

NewFile::Native::Native(std::string name) : name_(std::move(name)) {
    make();
}

NewFile::Native::Native(const Lock& replaced)
    : name_(replaced.name()), replaced_(&replaced.native()) {
    make();
    copyAttributes(name_, beside_);
}

NewFile::Native::~Native() {
    writing_.close();
    reading_.close();
    if (!beside_.empty()) ::DeleteFileW(nativeName(beside_).c_str());
}

void NewFile::Native::make() {
    beside_ = takeNameBeside(
        name_,
        [&](const std::string& beside) {
            writing_ = Handle(::CreateFileW(nativeName(beside).c_str(),
                                            GENERIC_READ | GENERIC_WRITE, kShareButWriting, nullptr,
                                            CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
            return writing_ ? 0 : lastReason();
        },
        removeDead);
    reading_ = openExisting(beside_, GENERIC_READ, kShareAll);
    if (!reading_) throw Error(Problem::write, name_, lastReason());
    // Where file numbers are reused, the lock on an earlier file may still have this one briefly.
    claim_ = Claim(stateOf(reading_, name_));
}

void NewFile::Native::write(std::uint64_t at, std::span<const std::uint8_t> bytes) const {
    writeTo(writing_, name_, at, bytes);
}

void NewFile::Native::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    readFrom(reading_, name_, at, out);
}

OpenFile NewFile::Native::publish() {
    if (::FlushFileBuffers(writing_.get()) == 0) throw Error(Problem::write, name_, lastReason());
    // The next writer would take a file that is open for writing to be in use.
    writing_.close();
    // Now, since others may write it as soon as it has appeared.
    auto published = std::make_unique<OpenFile::Native>(name_, reading_);
    if (replaced_ == nullptr) {
        appear();
    } else {
        replace();
    }
    // Whoever replaces it next must find it closed.
    reading_.close();
    beside_.clear();
    return OpenFile(std::move(published));
}

void NewFile::Native::appear() {
    const int reason = rename(beside_, name_, 0);
    if (reason != 0) throw Error(Problem::write, name_, reason);
}

void NewFile::Native::replace() {
    const Patience patience(kHoldersTime);
    while (!tryToReplace()) {
        if (!patience.wait()) throw Error(Problem::inUse, name_);
    }
}

/// Takes the old file's place if nobody has that open, and returns whether nobody had. For a moment
/// between the comparison and the rename the old file is not protected, because a file that is open
/// cannot be replaced.
bool NewFile::Native::tryToReplace() {
    if (!exists(name_)) throw Error(Problem::changed, name_);
    {
        const Handle old = openAgainstWriters(name_);
        if (!old) return false;
        if (!replaced_->state().isUnchangedIn(stateOf(old, name_))) {
            throw Error(Problem::changed, name_);
        }
    }
    const int reason = rename(beside_, name_, MOVEFILE_REPLACE_EXISTING);
    if (reason == 0) return true;
    if (reason != ERROR_ACCESS_DENIED && reason != ERROR_SHARING_VIOLATION) {
        throw Error(Problem::write, name_, reason);
    }
    return false;
}

void writeTo(const Handle& file, const std::string& name, std::uint64_t at,
             std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kPiece = 1U << 24U;
    while (!bytes.empty()) {
        OVERLAPPED place = {};
        place.Offset = static_cast<DWORD>(at);
        place.OffsetHigh = static_cast<DWORD>(at >> 32U);
        DWORD put = 0;
        if (::WriteFile(file.get(), bytes.data(),
                        static_cast<DWORD>(std::min(bytes.size(), kPiece)), &put, &place) == 0) {
            throw Error(Problem::write, name, lastReason());
        }
        bytes = bytes.subspan(put);
        at += put;
    }
}

}  // namespace huebrush::files
