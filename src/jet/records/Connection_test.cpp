// SPDX-License-Identifier: MPL-2.0

#include "jet/records/Connection.h"

#include "jet/records/Records_test_support.h"

namespace huebrush::jet {
namespace {

class Connections : public OnPaletteFile {
 protected:
    std::int32_t errorOfOpening(const std::string& connection, const std::string& user = "Admin",
                                const std::string& password = "") {
        Connection opened(file.files);
        return errorOf([&] { opened.Open(connection, user, password); });
    }
    std::size_t elements() { return allRows(*file.database, "TFillElementParameter").size(); }
};

TEST_F(Connections, OpenTheFileThatTheirStringNames) {
    Connection connection(file.files);
    EXPECT_EQ(connection.State(), ObjectStateEnum::adStateClosed);
    connection.Open(toFile, "Admin", "");
    EXPECT_EQ(connection.State(), ObjectStateEnum::adStateOpen);
    EXPECT_EQ(connection.database()->name(), PaletteFile::kName);
    connection.Close();
    EXPECT_EQ(connection.State(), ObjectStateEnum::adStateClosed);
}

TEST_F(Connections, ToAMissingFileOrAnotherProviderAreErrors) {
    EXPECT_EQ(errorOfOpening(connectionTo("/none.mdb")), ErrorNumber::kFileNotFound);
    EXPECT_EQ(errorOfOpening("Provider=Other;Data Source=/fill.mdb"), ErrorNumber::kNotSupported);
    EXPECT_EQ(errorOfOpening(connectionTo("")), ErrorNumber::kNotSupported);
}

TEST_F(Connections, ToWhatIsNotADatabaseAreErrors) {
    Bytes& bytes = *file.files.files.at(PaletteFile::kName);
    bytes.resize(3 * kPageSize);
    EXPECT_EQ(errorOfOpening(toFile), ErrorNumber::kDamaged);
    bytes.assign(100, 'x');
    EXPECT_EQ(errorOfOpening(toFile), ErrorNumber::kNotADatabase);
}

TEST_F(Connections, KnowOnlyAdminWithoutAPassword) {
    EXPECT_EQ(errorOfOpening(toFile, "Admin", "x"), ErrorNumber::kNoSuchAccount);
    EXPECT_EQ(errorOfOpening(toFile, "Karel"), ErrorNumber::kNoSuchAccount);
    EXPECT_EQ(message, "Databáze nezná uživatele „Karel“ s tímto heslem.");
}

TEST_F(Connections, ThatAreClosedDoNothingAndOpenOnesAreNotOpenedAgain) {
    Connection connection(file.files);
    EXPECT_EQ(errorOf([&] { connection.Close(); }), ErrorNumber::kClosed);
    EXPECT_EQ(errorOf([&] {
                  connection.Execute("DELETE FROM TFillElementParameter WHERE (GroupID = 1)");
              }),
              ErrorNumber::kClosed);
    EXPECT_EQ(errorOf([&] { connection.inOneCommit([] {}); }), ErrorNumber::kClosed);
    connection.Open(toFile);
    EXPECT_EQ(errorOf([&] { connection.Open(toFile); }), ErrorNumber::kAlreadyOpen);
    EXPECT_EQ(connection.State(), ObjectStateEnum::adStateOpen);
}

TEST_F(Connections, DeleteTheElementsOfOnePalette) {
    addPalette(*file.database, "první", {1, 2, 5000});
    addPalette(*file.database, "druhá", {4, 5});
    Connection connection(file.files);
    connection.Open(toFile);
    connection.Execute("DELETE FROM TFillElementParameter WHERE (GroupID = 1)");
    file.database->refresh();
    for (const auto& row : allRows(*file.database, "TFillElementParameter")) {
        EXPECT_EQ(row[1], Value(2));
    }
    EXPECT_EQ(elements(), 2U);
    EXPECT_EQ(allRows(*file.database, "TFillGroup").size(), 2U);
    connection.Execute("DELETE FROM TFillElementParameter WHERE (GroupID = 77)");
    file.database->refresh();
    EXPECT_EQ(elements(), 2U);
    EXPECT_EQ(faults(*file.database), "");
}

TEST_F(Connections, UnderstandNoOtherCommand) {
    addPalette(*file.database, "první", {1});
    Connection connection(file.files);
    connection.Open(toFile);
    for (const char* command :
         {"", "DELETE FROM TFillElementParameter", "DELETE FROM TFillGroup WHERE (GroupID = 1)",
          "DELETE FROM TFillElementParameter WHERE (GroupID = )",
          "DELETE FROM TFillElementParameter WHERE (GroupID = 1",
          "DELETE FROM TFillElementParameter WHERE (GroupID = 1) ",
          "DELETE FROM TFillElementParameter WHERE (GroupID = 1 OR 1)",
          "DELETE FROM TFillElementParameter WHERE (GroupID = 99999999999)",
          "delete from TFillElementParameter where (GroupID = 1)"}) {
        EXPECT_EQ(errorOf([&] { connection.Execute(command); }), ErrorNumber::kSyntax) << command;
    }
    EXPECT_EQ(message,
              "Dotazu „delete from TFillElementParameter where (GroupID = 1)“ databáze nerozumí.");
    file.database->refresh();
    EXPECT_EQ(elements(), 1U);
}

TEST_F(Connections, WriteAGroupOfChangesAtOnceAndKeepWhatWasDoneBeforeAnError) {
    Connection connection(file.files);
    connection.Open(toFile);
    const Bytes before = *file.files.files.at(PaletteFile::kName);
    const std::int32_t number = errorOf([&] {
        connection.inOneCommit([&] {
            Recordset groups;
            groups.Open("SELECT TFillGroup.* From TFillGroup ORDER BY Name", connection);
            for (const char* name : {"první", "druhá", ""}) {
                groups.AddNew();
                groups.SetField("Name", std::string(name));
                groups.Update();
                EXPECT_EQ(*file.files.files.at(PaletteFile::kName), before);
            }
        });
    });
    EXPECT_EQ(number, ErrorNumber::kEmptyNotAllowed);
    file.database->refresh();
    EXPECT_EQ(allRows(*file.database, "TFillGroup").size(), 2U);
}

}  // namespace
}  // namespace huebrush::jet
