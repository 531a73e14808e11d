#include "jet/page/Pages.h"

#include <algorithm>

namespace huebrush::jet {

namespace {

constexpr std::size_t kCachedPages = 4096;
/// 2 GB less one page, so that every offset fits a signed 32-bit number.
constexpr PageNumber kLargestFile = 524287;
constexpr std::size_t kPagesAWrite = 64;

}  // namespace

Pages::Pages(std::shared_ptr<File> file) : file_(std::move(file)) {
    const std::uint64_t size = file_->size();
    if (size % kPageSize != 0 || size / kPageSize > kLargestFile) {
        throwDamage(static_cast<PageNumber>(size / kPageSize), size % kPageSize, rule::kFileSize);
    }
    count_ = static_cast<PageNumber>(size / kPageSize);
    countOnFile_ = count_;
    mark();
}

PagePointer Pages::read(PageNumber number) {
    if (number >= count_) throwDamage(number, 0, rule::kPageExists);
    if (const auto changed = changed_.find(number); changed != changed_.end()) {
        return changed->second;
    }
    if (const auto cached = cache_.find(number); cached != cache_.end()) return cached->second;
    auto page = std::make_shared<Page>();
    file_->read(std::uint64_t{number} * kPageSize, *page);
    remember(number, page);
    return page;
}

PagePointer Pages::read(PageNumber number, std::uint8_t type) {
    PagePointer page = read(number);
    if ((*page)[0] != type) throwDamage(number, 0, rule::kPageType);
    return page;
}

void Pages::remember(PageNumber number, PagePointer page) {
    // Which page goes does not matter much; dropping all keeps the memory bounded at no cost.
    if (cache_.size() >= kCachedPages) cache_.clear();
    cache_[number] = std::move(page);
}

Page& Pages::change(PageNumber number) {
    const auto changed = changed_.find(number);
    if (!before_.contains(number)) {
        before_[number] = changed == changed_.end() ? nullptr : changed->second;
    } else if (changed->second.use_count() == 1) {
        return *changed->second;
    }
    // Whoever holds the page goes on seeing it as it was.
    const PagePointer now = read(number);
    auto copy = std::make_shared<Page>(*now);
    changed_[number] = copy;
    cache_.erase(number);
    return *copy;
}

PageNumber Pages::append() {
    if (count_ >= kLargestFile) {
        throw base::Error(ErrorNumber::kOutOfSpace,
                          "Databáze dosáhla své největší velikosti 2 GB.");
    }
    const PageNumber number = count_++;
    before_[number] = nullptr;
    changed_[number] = std::make_shared<Page>(Page{});
    return number;
}

void Pages::mark() {
    before_.clear();
    countBefore_ = count_;
}

void Pages::undo() {
    for (auto& [number, page] : before_) {
        if (page) {
            changed_[number] = page;
        } else {
            changed_.erase(number);
        }
    }
    count_ = countBefore_;
    before_.clear();
}

void Pages::writeTo(File& file) {
    Bytes buffer;
    std::uint64_t at = 0;
    for (PageNumber number = 0; number < count_;) {
        const PageNumber next =
            std::min<PageNumber>(count_, number + static_cast<PageNumber>(kPagesAWrite));
        buffer.resize((next - number) * kPageSize);
        const PageNumber onFile = std::clamp(countOnFile_, number, next) - number;
        if (onFile > 0) {
            file_->read(std::uint64_t{number} * kPageSize,
                        std::span(buffer).first(onFile * kPageSize));
        }
        for (auto each = changed_.lower_bound(number); each != changed_.end() && each->first < next;
             ++each) {
            std::copy(
                each->second->begin(), each->second->end(),
                buffer.begin() + static_cast<std::ptrdiff_t>((each->first - number) * kPageSize));
        }
        file.write(at, buffer);
        at += buffer.size();
        number = next;
    }
}

void Pages::adopt(std::shared_ptr<File> file) {
    for (auto& [number, page] : changed_) remember(number, std::move(page));
    changed_.clear();
    mark();
    file_ = std::move(file);
    countOnFile_ = count_;
}

}  // namespace huebrush::jet
