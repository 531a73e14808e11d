// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string_view>

namespace huebrush::jet {

/// A rule of the file format, by its number in docs/jet4-format.md, and what is wrong where it is
/// broken.
struct Rule {
    std::string_view number;
    std::string_view breach;

    friend bool operator==(const Rule& a, const Rule& b) { return a.number == b.number; }
};

namespace rule {

inline constexpr Rule kWithinBytes{"B1", "a field reaches beyond its page or row"};
inline constexpr Rule kFileSize{"F1", "the file does not consist of whole pages of 4096 bytes"};
inline constexpr Rule kPageExists{"F2", "a pointer leads to a page beyond the end of the file"};
inline constexpr Rule kPageType{"F3", "the page is not of the expected type"};
inline constexpr Rule kOneOwner{"F4", "the page belongs to more than one object"};
inline constexpr Rule kFileWhole{"F5",
                                 "the page is marked as used but lies beyond the end of the file"};

inline constexpr Rule kMapForm{"M1", "the page map has an unknown form"};
inline constexpr Rule kMapPage{"M2", "a page and the page maps of its object disagree"};
inline constexpr Rule kUsedNotFree{"M3", "the page is in use but marked as free"};
inline constexpr Rule kOwned{"M4", "the page is orphaned but not marked as free"};
inline constexpr Rule kMapOfTree{"M5", "the page is in the map of an index that does not use it"};

inline constexpr Rule kSlotTable{"D1", "the table of row slots does not fit on the page"};
inline constexpr Rule kSlotInside{"D2", "a row overlaps the slot table or the row before it"};
inline constexpr Rule kRowExists{"D3", "a pointer leads to a row that does not exist"};
inline constexpr Rule kFreeBytes{"D4", "the number of free bytes is wrong"};
inline constexpr Rule kOwner{"D5", "the page names a different owner"};
inline constexpr Rule kMovedOnce{"D6", "a moved row and the pointer to it do not match"};

inline constexpr Rule kRowColumns{"R1", "the row has more columns than its table"};
inline constexpr Rule kRowOffsets{"R2", "the variable columns are out of order in the row"};
inline constexpr Rule kValueSize{"R3", "a value does not have the size of its type"};
inline constexpr Rule kRequired{"R4", "a required column has no value"};

inline constexpr Rule kLongForm{"L1", "a long value has an unknown form"};
inline constexpr Rule kLongLength{"L2", "a long value and its parts differ in length"};
inline constexpr Rule kLongOnce{"L3", "a part of a long value belongs to two values"};
inline constexpr Rule kLongOwned{"L4", "a part of a long value is on another object's page"};
inline constexpr Rule kLongUsed{"L5", "a part of a long value is orphaned: no value uses it"};

inline constexpr Rule kDefinition{"T1", "the table definition is incomplete"};
inline constexpr Rule kColumns{"T2", "the table has duplicate column numbers or unknown types"};
inline constexpr Rule kTrees{"T3", "an index of the table has no tree or unknown columns"};
inline constexpr Rule kRowCount{"T4", "the stored number of rows is wrong"};
inline constexpr Rule kAutonumber{"T5", "the autonumber counter is behind the rows"};

inline constexpr Rule kEntries{"I1", "the entries of the index page do not fit its mask"};
inline constexpr Rule kEntryOrder{"I2", "index entries are out of order"};
inline constexpr Rule kTreeShape{"I3", "the index tree is broken or of uneven depth"};
inline constexpr Rule kLeafChain{"I4", "the leaves of the index are linked in the wrong order"};
inline constexpr Rule kNodeKey{"I5", "a node does not hold the last entry of its child"};
inline constexpr Rule kEntryForRow{"I6", "the rows and the entries of an index do not match"};
inline constexpr Rule kKeyOfRow{"I7", "the key of an index entry differs from that of its row"};
inline constexpr Rule kUnique{"I8", "a unique index has the same key twice"};

inline constexpr Rule kRelation{"K1", "the records of a relation disagree"};
inline constexpr Rule kParentExists{"K2", "the row's parent row does not exist"};

inline constexpr Rule kProperties{"P1", "the properties of the table cannot be read"};
inline constexpr Rule kCatalog{"C1", "a catalogue entry does not match its table"};

}  // namespace rule
}  // namespace huebrush::jet
