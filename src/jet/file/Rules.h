#pragma once

#include <string_view>

namespace huebrush::jet {

/// A rule of the file format, by its number in docs/jet4-format.md.
struct Rule {
    std::string_view number;
    std::string_view text;

    friend bool operator==(const Rule& a, const Rule& b) { return a.number == b.number; }
};

namespace rule {

inline constexpr Rule kWithinBytes{"B1", "údaj leží uvnitř strany nebo řádku"};
inline constexpr Rule kFileSize{"F1", "soubor se skládá z celých stran po 4096 bajtech"};
inline constexpr Rule kPageExists{"F2", "odkaz vede na stranu uvnitř souboru"};
inline constexpr Rule kPageType{"F3", "strana má druh, který odkaz očekává"};
inline constexpr Rule kOneOwner{"F4", "strana patří nejvýše jednomu objektu"};
inline constexpr Rule kFileWhole{
    "F5", "soubor má všechny strany, které mapa volných stran uvádí jako použité"};

inline constexpr Rule kMapForm{"M1", "mapa stran má tvar 0 nebo 1"};
inline constexpr Rule kMapPage{"M2", "strana v mapě leží uvnitř souboru"};
inline constexpr Rule kUsedNotFree{"M3", "používaná strana není v mapě volných stran"};

inline constexpr Rule kSlotTable{"D1", "tabulka řádků se vejde na stranu"};
inline constexpr Rule kSlotInside{"D2", "řádek leží za tabulkou řádků a před předchozím řádkem"};
inline constexpr Rule kRowExists{"D3", "odkaz vede na existující řádek"};
inline constexpr Rule kFreeBytes{"D4", "údaj o volném místě strany souhlasí"};
inline constexpr Rule kOwner{"D5", "strana nese číslo své tabulky"};
inline constexpr Rule kMovedOnce{"D6", "přesunutý řádek má právě jeden cíl"};

inline constexpr Rule kRowColumns{"R1", "řádek nemá více sloupců než tabulka"};
inline constexpr Rule kRowOffsets{"R2", "začátky proměnných sloupců leží v řádku a rostou"};
inline constexpr Rule kValueSize{"R3", "hodnota má velikost svého druhu"};
inline constexpr Rule kRequired{"R4", "povinný sloupec má hodnotu"};

inline constexpr Rule kLongForm{"L1", "dlouhá hodnota má známý tvar"};
inline constexpr Rule kLongLength{"L2", "délka dlouhé hodnoty souhlasí s jejími částmi"};
inline constexpr Rule kLongOnce{"L3", "část dlouhé hodnoty patří právě jedné hodnotě"};
inline constexpr Rule kLongOwned{"L4", "část dlouhé hodnoty leží na straně svého sloupce"};

inline constexpr Rule kDefinition{"T1", "definice tabulky je úplná"};
inline constexpr Rule kColumns{"T2", "sloupce tabulky mají různá čísla a známé druhy"};
inline constexpr Rule kTrees{"T3", "index tabulky má svůj strom a existující sloupce"};
inline constexpr Rule kRowCount{"T4", "počet řádků souhlasí s tabulkou"};
inline constexpr Rule kAutonumber{"T5", "čítač automatických čísel nezaostává za řádky"};

inline constexpr Rule kEntries{"I1", "záznamy indexu vyplňují stranu podle masky"};
inline constexpr Rule kEntryOrder{"I2", "záznamy indexu rostou"};
inline constexpr Rule kTreeShape{"I3", "strom indexu je souvislý a stejně hluboký"};
inline constexpr Rule kLeafChain{"I4", "listy indexu jsou propojeny v pořadí"};
inline constexpr Rule kNodeKey{"I5", "uzel nese poslední záznam svého potomka"};
inline constexpr Rule kEntryForRow{"I6", "každý řádek má v indexu právě jeden záznam"};
inline constexpr Rule kKeyOfRow{"I7", "klíč záznamu souhlasí s řádkem"};
inline constexpr Rule kUnique{"I8", "klíče jedinečného indexu se neopakují"};

inline constexpr Rule kRelation{"K1", "vazba je zapsána shodně v obou tabulkách i v katalogu"};
inline constexpr Rule kParentExists{"K2", "řádek odkazuje na existující nadřazený řádek"};

inline constexpr Rule kProperties{"P1", "vlastnosti tabulky mají čitelný tvar"};
inline constexpr Rule kCatalog{"C1", "objekt katalogu odpovídá definici tabulky"};

}  // namespace rule
}  // namespace huebrush::jet
