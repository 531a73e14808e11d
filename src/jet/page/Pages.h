#pragma once

#include <array>
#include <map>
#include <memory>
#include <unordered_map>

#include "jet/file/Bytes.h"
#include "jet/file/FileSystem.h"

namespace huebrush::jet {

inline constexpr std::size_t kPageSize = 4096;
using Page = std::array<std::uint8_t, kPageSize>;
using PagePointer = std::shared_ptr<const Page>;

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

/// The pages of a file, with changes held in memory until they are written out. Clean pages are
/// cached, up to a bound; a page pointer stays valid and unchanged however long it is held.
///
/// Whatever changes pages runs inside Database::change, which locks the file against other writers
/// and takes back what an error has left unfinished.
class Pages {
 public:
    explicit Pages(std::shared_ptr<File> file);
    /// A file to be: no page yet.
    Pages() = default;

    PageNumber count() const { return count_; }

    /// A page as it is now. Damage when the file has no such page.
    PagePointer read(PageNumber number);
    /// The same, which must be of a type; the place that refers to it is told when it is not.
    PagePointer read(PageNumber number, std::uint8_t type);
    /// A page to change.
    Page& change(PageNumber number);
    /// A new page of zeros at the end. An error beyond 2 GB.
    PageNumber append();

    bool changed() const { return !changed_.empty(); }

    /// From here on, undo takes back what is changed until the next mark.
    void mark();
    void undo();

    /// Writes all pages, changed or not, into a new file.
    void writeTo(File& file);
    /// All changes are in `file` now.
    void adopt(std::shared_ptr<File> file);

    File* file() const { return file_.get(); }

 private:
    void remember(PageNumber number, PagePointer page);

    std::shared_ptr<File> file_;
    PageNumber count_ = 0;
    PageNumber countOnFile_ = 0;
    std::map<PageNumber, std::shared_ptr<Page>> changed_;
    std::map<PageNumber, std::shared_ptr<Page>> before_;
    PageNumber countBefore_ = 0;
    std::unordered_map<PageNumber, PagePointer> cache_;
};

}  // namespace huebrush::jet
