// SPDX-License-Identifier: MPL-2.0

#include "jet/page/Pages.h"

#include <algorithm>
#include <utility>

namespace huebrush::jet {

namespace {

/// 2 GB less one page, so that every offset fits a signed 32-bit number.
constexpr PageNumber kLargestFile = 524287;
constexpr std::size_t kPagesAWrite = 64;
/// In addition to the pages in memory, up to this many may be versions that undo needs.
constexpr std::size_t kShareOfVersions = 4;

}  // namespace

PageStore::Slot PageStore::put(const Page& page, Slot slot) {
    if (!file_) file_ = makeFile_();
    Slot where = slot;
    if (where == 0) where = free_.empty() ? slots_ + 1 : free_.back();
    file_->write(std::uint64_t{where - 1} * kPageSize, page);
    if (where > slots_) {
        slots_ = where;
    } else if (slot == 0) {
        free_.pop_back();
    }
    return where;
}

void PageStore::get(Slot slot, Page& page) {
    file_->read(std::uint64_t{slot - 1} * kPageSize, page);
}

void PageStore::release(Slot slot) {
    if (slot != 0) free_.push_back(slot);
}

void PageStore::clear() {
    file_.reset();
    slots_ = 0;
    free_.clear();
}

Pages::Pages(std::shared_ptr<File> file, PageStore::MakeFile scratch, std::size_t memory)
    : file_(std::move(file)), memory_(memory), limit_(memory), store_(std::move(scratch)) {
    const std::uint64_t size = file_->size();
    if (size % kPageSize != 0 || size / kPageSize > kLargestFile) {
        throwDamage(static_cast<PageNumber>(size / kPageSize), size % kPageSize, rule::kFileSize);
    }
    count_ = static_cast<PageNumber>(size / kPageSize);
    countOnFile_ = count_;
    mark();
}

Pages::Frame& Pages::load(PageNumber number) {
    if (number >= count_) throwDamage(number, 0, rule::kPageExists);
    if (const auto found = frames_.find(number); found != frames_.end()) return found->second;
    auto page = std::make_shared<HeldPage>();
    if (number < slots_.size() && slots_[number] != 0) {
        store_.get(slots_[number], page->content);
    } else {
        file_->read(std::uint64_t{number} * kPageSize, page->content);
    }
    return keep(number, std::move(page));
}

Pages::Frame& Pages::keep(PageNumber number, std::shared_ptr<HeldPage> page) {
    if (frames_.size() >= limit_) putAllAway();
    Frame& frame = frames_[number];
    frame.page = std::move(page);
    return frame;
}

/// Which pages leave the memory does not matter much: those in use are soon back. Removing all of
/// them at once needs no record of their use.
void Pages::putAllAway() {
    if (store_.usable()) {
        slots_.resize(count_);
        for (auto& [number, frame] : frames_) {
            if (!frame.changed) continue;
            slots_[number] = store_.put(frame.page->content, slots_[number]);
            frame.changed = false;
        }
    }
    std::erase_if(frames_, [](const auto& each) { return !each.second.changed; });
    limit_ = frames_.size() + memory_;
}

PagePointer Pages::read(PageNumber number) {
    return PagePointer(load(number).page);
}

PagePointer Pages::read(PageNumber number, std::uint8_t type) {
    PagePointer page = read(number);
    if ((*page)[0] != type) throwDamage(number, 0, rule::kPageType);
    return page;
}

PagePointer Pages::readSound(PageNumber number, Check check) {
    Frame& frame = load(number);
    if (!frame.sound) check(frame.page->content, number);
    frame.sound = true;
    return PagePointer(frame.page);
}

Page& Pages::change(PageNumber number) {
    Frame& frame = load(number);
    const bool isKept = touch(number, frame);
    // Whoever reads the page keeps seeing it as it was, and so does an undo.
    if (isKept || frame.page->readers > 0) {
        frame.page = std::make_shared<HeldPage>(frame.page->content);
    }
    frame.changed = true;
    frame.sound = false;
    return frame.page->content;
}

PageNumber Pages::append() {
    if (count_ >= kLargestFile) {
        throw Error(ErrorNumber::kOutOfSpace, "Databáze dosáhla své největší velikosti 2 GB.",
                    "the database has reached its largest size of 2 GB");
    }
    Frame& frame = keep(count_, std::make_shared<HeldPage>());
    const PageNumber number = count_++;
    touch(number, frame);
    frame.changed = true;
    return number;
}

bool Pages::differsFromFile(PageNumber number) const {
    if (number < slots_.size() && slots_[number] != 0) return true;
    const auto found = frames_.find(number);
    return found != frames_.end() && found->second.changed;
}

/// Keeps, at the first change since the mark, what undo needs. Whether this is the page in memory.
bool Pages::touch(PageNumber number, const Frame& frame) {
    if (isTouched_.size() < count_) isTouched_.resize(count_);
    if (isTouched_[number]) return false;
    bool isKept = false;
    if (differsFromFile(number)) {
        isKept = rememberVersion(number, frame);
    } else {
        ++changedPages_;
    }
    isTouched_[number] = true;
    touched_.push_back(number);
    return isKept;
}

bool Pages::rememberVersion(PageNumber number, const Frame& frame) {
    Version version;
    if (!frame.changed) {
        // The slot has it; the page gets another one when it is put away.
        version.slot = std::exchange(slots_[number], 0);
    } else if (versionsInMemory_ < memory_ / kShareOfVersions || !store_.usable()) {
        forgetSlot(number);
        version.page = frame.page;
        ++versionsInMemory_;
    } else {
        slots_.resize(std::max<std::size_t>(slots_.size(), number + std::size_t{1}));
        version.slot = store_.put(frame.page->content, slots_[number]);
        slots_[number] = 0;
    }
    const bool isKept = version.page != nullptr;
    before_[number] = std::move(version);
    return isKept;
}

void Pages::forgetSlot(PageNumber number) {
    if (number < slots_.size()) store_.release(std::exchange(slots_[number], 0));
}

void Pages::mark() {
    for (const auto& [number, version] : before_) store_.release(version.slot);
    before_.clear();
    versionsInMemory_ = 0;
    for (const PageNumber number : touched_) isTouched_[number] = false;
    touched_.clear();
    countBefore_ = count_;
}

void Pages::undo() {
    for (const PageNumber number : touched_) restore(number);
    before_.clear();
    count_ = countBefore_;
    mark();
    if (!changed()) store_.clear();
}

void Pages::restore(PageNumber number) {
    frames_.erase(number);
    forgetSlot(number);
    const auto before = before_.find(number);
    if (before == before_.end()) {
        --changedPages_;
    } else if (before->second.page) {
        frames_[number] = {before->second.page, true};
    } else {
        slots_[number] = before->second.slot;
    }
}

void Pages::writeTo(NewFile& file) {
    Bytes buffer;
    Page page;
    for (PageNumber number = 0; number < count_;) {
        const PageNumber next =
            std::min<PageNumber>(count_, number + static_cast<PageNumber>(kPagesAWrite));
        buffer.resize((next - number) * kPageSize);
        const PageNumber onFile = std::clamp(countOnFile_, number, next) - number;
        if (onFile > 0) {
            file_->read(std::uint64_t{number} * kPageSize,
                        std::span(buffer).first(onFile * kPageSize));
        }
        for (PageNumber each = number; each < next; ++each) {
            if (!differsFromFile(each)) continue;
            const auto frame = frames_.find(each);
            if (frame == frames_.end()) store_.get(slots_[each], page);
            const Page& content = frame == frames_.end() ? page : frame->second.page->content;
            std::copy(content.begin(), content.end(),
                      buffer.begin() + static_cast<std::ptrdiff_t>((each - number) * kPageSize));
        }
        file.write(std::uint64_t{number} * kPageSize, buffer);
        number = next;
    }
}

void Pages::adopt(std::shared_ptr<File> file) {
    for (auto& [number, frame] : frames_) frame.changed = false;
    slots_.clear();
    mark();
    store_.clear();
    changedPages_ = 0;
    file_ = std::move(file);
    countOnFile_ = count_;
}

}  // namespace huebrush::jet
