// SPDX-License-Identifier: MPL-2.0

#include "palette/mMakeDatabase.h"

#include "error/mError.h"
#include "jet/database/Catalogue.h"

namespace huebrush::palette {

namespace {

using error::Steps;
using jet::catalogue::Catalog;
using jet::catalogue::Column;
using jet::catalogue::DataType;
using jet::catalogue::Index;
using jet::catalogue::kAdColNullable;
using jet::catalogue::KeyType;
using jet::catalogue::Table;

constexpr const char* kProvider = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
constexpr const char* kGroups = "TFillGroup";
constexpr const char* kElements = "TFillElementParameter";
constexpr const char* kAllowZeroLength = "Jet OLEDB:Allow Zero Length";

std::int16_t always() {
    return 1;
}

/// Creates one table, one operation per step.
class TableMaker {
 public:
    TableMaker(Steps& step, Catalog& catalog, Table& table)
        : step_(step), catalog_(catalog), table_(table) {}

    void begin(const char* name) {
        step_([&] { table_ = Table(); });
        step_([&] { table_.Name = name; });
    }
    void appendNumber(const char* name) {
        step_([&] { table_.AppendColumn(name, DataType::adInteger); });
    }
    void appendNumbers(std::initializer_list<const char*> names) {
        for (const char* const name : names) appendNumber(name);
    }
    void makeNullable(const char* name) {
        step_([&] { table_.ColumnOf(name).Attributes = kAdColNullable; });
    }
    void appendAutonumber(const char* name) {
        Column column;
        step_([&] { column = Column(); });
        step_([&] { column.ParentCatalog = &catalog_; });
        step_([&] { column.Name = name; });
        step_([&] { column.Type = DataType::adInteger; });
        step_([&] { column.SetProperty("AutoIncrement", true); });
        step_([&] { table_.AppendColumn(column); });
    }
    void appendNullableText(const char* name, std::size_t size) {
        Column column;
        step_([&] { column = Column(); });
        step_([&] { column.ParentCatalog = &catalog_; });
        step_([&] { column.Name = name; });
        step_([&] { column.Type = DataType::adVarWChar; });
        step_([&] { column.DefinedSize = size; });
        step_([&] { column.Attributes = kAdColNullable; });
        step_([&] { table_.AppendColumn(column); });
    }
    void appendPrimaryKey(const char* name, const char* column) {
        Index index;
        step_([&] { index = Index(); });
        step_([&] { index.Name = name; });
        step_([&] { index.PrimaryKey = true; });
        step_([&] { index.Unique = true; });
        step_([&] { index.Columns.emplace_back(column); });
        step_([&] { table_.AppendIndex(index); });
    }
    void store() {
        step_([&] { catalog_.AppendTable(table_); });
    }
    void allowZeroLength(const char* table, const char* column) {
        step_([&] { catalog_.SetStoredProperty(table, column, kAllowZeroLength, true); });
    }

 private:
    Steps& step_;
    Catalog& catalog_;
    Table& table_;
};

void makeGroups(Steps& step, Catalog& catalog, Table& table) {
    TableMaker make(step, catalog, table);
    make.begin(kGroups);
    make.appendAutonumber("ID");
    step([&] { table.AppendColumn("Name", DataType::adVarWChar, 30); });
    make.appendNullableText("Description", 255);
    make.appendNumber("Count");
    make.makeNullable("Count");
    make.appendPrimaryKey("PIXTFillGroup", "ID");
    make.store();
    make.allowZeroLength(kGroups, "Description");
}

void makeElements(Steps& step, Catalog& catalog, Table& table) {
    TableMaker make(step, catalog, table);
    make.begin(kElements);
    make.appendAutonumber("ID");
    make.appendNumbers({"GroupID", "OrderNumber", "Visible", "ForeColorRGB", "BackColorRGB",
                        "Transparency", "GradientStyle", "GradientColorType", "GradientVariant",
                        "GradientDegree", "PresetGradientType", "TextureType", "Type",
                        "PresetTexture"});
    make.appendNullableText("TextureName", 255);
    make.appendNumber("Pattern");
    make.appendNullableText("PictureName", 255);
    step([&] { table.AppendColumn("FillPreview", DataType::adLongVarBinary); });
    make.makeNullable("FillPreview");
    make.appendPrimaryKey("PIXTFillElementParameter", "ID");
    make.store();
    make.allowZeroLength(kElements, "TextureName");
    make.allowZeroLength(kElements, "PictureName");
}

}  // namespace

bool MakeDatabase(const std::string& path, jet::FileSystem& files) {
    bool made = false;
    Steps::run(
        {"Huebrush.mMakeDatabase.", "MakeDatabase", "Při vytváření databáze vznikla chyba..."},
        always, [&](Steps& step) {
            Catalog catalog(files);
            Table groups;
            Table elements;
            step([&] { catalog.Create(kProvider + path); });
            makeGroups(step, catalog, groups);
            makeElements(step, catalog, elements);
            step([&] {
                elements.AppendKey("Relace", KeyType::adKeyForeign, "GroupID", kGroups, "ID");
            });
            made = true;
        });
    return made;
}

}  // namespace huebrush::palette
