// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "jet/file/Bytes.h"
#include "jet/file/FileSystem.h"

namespace huebrush::jet {

inline constexpr std::size_t kPageSize = 4096;
using Page = std::array<std::uint8_t, kPageSize>;

/// A page in memory.
struct HeldPage {
    HeldPage() = default;
    explicit HeldPage(const Page& page) : content(page) {}

    Page content = {};
    std::size_t readers = 0;  ///< the PagePointers that show it
};

/// Shows a page as it was when it was read: valid and unchanged however long it is held.
class PagePointer {
 public:
    PagePointer() = default;
    explicit PagePointer(std::shared_ptr<HeldPage> page)
        : held_(std::move(page)), shown_(&held_->content) {
        ++held_->readers;
    }
    /// Shows a page that the caller holds, and may change meanwhile.
    explicit PagePointer(const Page& page) : shown_(&page) {}
    PagePointer(const PagePointer& other) : held_(other.held_), shown_(other.shown_) {
        if (held_) ++held_->readers;
    }
    PagePointer(PagePointer&& other) noexcept
        : held_(std::move(other.held_)), shown_(std::exchange(other.shown_, nullptr)) {}
    PagePointer& operator=(PagePointer other) noexcept {
        std::swap(held_, other.held_);
        std::swap(shown_, other.shown_);
        return *this;
    }
    ~PagePointer() {
        if (held_) --held_->readers;
    }

    const Page& operator*() const { return *shown_; }
    const Page* operator->() const { return shown_; }

 private:
    std::shared_ptr<HeldPage> held_;
    const Page* shown_ = nullptr;
};

/// What byte 0 of a page says.
namespace PageType {
inline constexpr std::uint8_t kData = 1;
inline constexpr std::uint8_t kDefinition = 2;
inline constexpr std::uint8_t kNode = 3;
inline constexpr std::uint8_t kLeaf = 4;
inline constexpr std::uint8_t kMap = 5;
inline constexpr std::uint8_t kFreedDefinition = 8;
inline constexpr std::uint8_t kFreedData = 9;
}  // namespace PageType

/// Pages put away into a file of their own, each in a slot.
class PageStore {
 public:
    /// Where a page is; 0 is nowhere.
    using Slot = std::uint32_t;
    using MakeFile = std::function<std::unique_ptr<NewFile>()>;

    /// The file is created when the first page is put away, and never published.
    explicit PageStore(MakeFile makeFile) : makeFile_(std::move(makeFile)) {}

    bool usable() const { return makeFile_ != nullptr; }
    /// Writes a page over what its slot holds; slot 0 means a new one, which is returned.
    Slot put(const Page& page, Slot slot);
    void get(Slot slot, Page& page);
    void release(Slot slot);
    /// Forgets all pages.
    void clear();

 private:
    MakeFile makeFile_;
    std::unique_ptr<NewFile> file_;
    Slot slots_ = 0;
    std::vector<Slot> free_;
};

/// The pages of a file, with changes that are not written out yet. A bounded number of pages is
/// kept in memory; beyond it, changed ones are put away into a scratch file, so a change may be of
/// any size. A page pointer stays valid and unchanged however long it is held.
///
/// Whatever changes pages runs inside Database::change, which locks the file against other writers
/// and undoes what an error has left unfinished.
class Pages {
 public:
    static constexpr std::size_t kUsualMemory = 4096;

    /// `scratch` creates the scratch file; without it all changed pages stay in memory. `memory` is
    /// the number of pages kept there.
    explicit Pages(std::shared_ptr<File> file, PageStore::MakeFile scratch = nullptr,
                   std::size_t memory = kUsualMemory);
    /// A file to be: no page yet.
    explicit Pages(PageStore::MakeFile scratch = nullptr) : store_(std::move(scratch)) {}

    PageNumber count() const { return count_; }

    /// A page as it is now. Damage when the file has no such page.
    PagePointer read(PageNumber number);
    /// The same, which must be of a type; if it is not, the place that refers to it is reported.
    PagePointer read(PageNumber number, std::uint8_t type);
    /// A page to change at once: the reference is valid until the next call of this object.
    Page& change(PageNumber number);
    /// A new page of zeros at the end. An error beyond 2 GB.
    PageNumber append();

    /// A page that is known to be sound: `check`, which throws if it is not, runs only once after
    /// the page was last changed or brought into memory. All users of a page use the same check.
    using Check = void (*)(const Page& page, PageNumber number);
    PagePointer readSound(PageNumber number, Check check);
    /// Marks a page that was just changed as still sound.
    void noteSound(PageNumber number) { load(number).sound = true; }

    bool changed() const { return changedPages_ != 0; }

    /// From here on, undo reverts what is changed until the next mark.
    void mark();
    void undo();

    /// Writes all pages, changed or not, into a new file.
    void writeTo(NewFile& file);
    /// All changes are in `file` now.
    void adopt(std::shared_ptr<File> file);

    File* file() const { return file_.get(); }

 private:
    using Slot = PageStore::Slot;
    /// A page in memory.
    struct Frame {
        std::shared_ptr<HeldPage> page;
        bool changed = false;  ///< it differs from its slot, or else from the file
        bool sound = false;
    };
    /// What a changed page was before it was changed again: in memory, else in a slot.
    struct Version {
        std::shared_ptr<HeldPage> page;
        Slot slot = 0;
    };

    Frame& load(PageNumber number);
    Frame& keep(PageNumber number, std::shared_ptr<HeldPage> page);
    void putAllAway();
    bool touch(PageNumber number, const Frame& frame);
    bool rememberVersion(PageNumber number, const Frame& frame);
    void restore(PageNumber number);
    void forgetSlot(PageNumber number);
    bool differsFromFile(PageNumber number) const;

    std::shared_ptr<File> file_;
    PageNumber count_ = 0;
    PageNumber countOnFile_ = 0;
    std::size_t memory_ = kUsualMemory;
    std::size_t limit_ = kUsualMemory;  ///< of frames; more than `memory_` without a scratch file
    std::unordered_map<PageNumber, Frame> frames_;
    PageStore store_;
    std::vector<Slot> slots_;  ///< by page: where a changed one was put away
    std::size_t changedPages_ = 0;

    // Since the mark.
    PageNumber countBefore_ = 0;
    std::vector<bool> isTouched_;  ///< by page
    std::vector<PageNumber> touched_;
    std::unordered_map<PageNumber, Version> before_;  ///< of pages that were changed already
    std::size_t versionsInMemory_ = 0;
};

}  // namespace huebrush::jet
