// SPDX-License-Identifier: MPL-2.0

// Changes numbers in the rows of a table by means of mdbtools, which writes into the pages of the
// file as they are.
//
//     mdbtools_update FILE TABLE COLUMN ID NUMBER [ID NUMBER]...

// The first has templates, and the second includes it inside of extern "C".
#include <glib.h>
#include <mdbtools.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace {

/// Where mdbtools puts the text of a column, and takes the bytes of its new value from.
struct Bound {
    std::array<char, MDB_BIND_SIZE> bytes{};
    int length = 0;
};

void unbindAll(MdbTableDef* table) {
    for (unsigned i = 0; i < table->num_cols; ++i) {
        auto* const column = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, i));
        column->bind_ptr = nullptr;
        column->len_ptr = nullptr;
    }
}

bool update(MdbTableDef* table, char* column, long id, std::int32_t number) {
    char idName[] = "ID";
    Bound idText;
    Bound value;
    unbindAll(table);
    mdb_rewind_table(table);
    mdb_bind_column_by_name(table, idName, idText.bytes.data(), &idText.length);
    while (mdb_fetch_row(table) != 0) {
        if (std::atol(idText.bytes.data()) != id) continue;
        unbindAll(table);
        mdb_bind_column_by_name(table, column, value.bytes.data(), &value.length);
        std::memcpy(value.bytes.data(), &number, sizeof(number));
        value.length = sizeof(number);
        // What it returns is the same whether it has written or not.
        mdb_update_row(table);
        return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 6) return 2;
    MdbHandle* const file = mdb_open(argv[1], MDB_WRITABLE);
    if (file == nullptr) return 1;
    MdbTableDef* const table = mdb_read_table_by_name(file, argv[2], MDB_TABLE);
    if (table == nullptr) return 1;
    mdb_read_columns(table);
    mdb_read_indices(table);
    bool found = true;
    for (int i = 4; i + 1 < argc; i += 2) {
        found = update(table, argv[3], std::atol(argv[i]),
                       static_cast<std::int32_t>(std::atol(argv[i + 1]))) &&
                found;
    }
    mdb_free_tabledef(table);
    mdb_close(file);
    return found ? 0 : 1;
}
