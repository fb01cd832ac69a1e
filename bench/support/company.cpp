#include "company.hpp"

#include "setup/definition.hpp"
#include "setup/demonstration.hpp"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <memory>

namespace kestrel::bench {

namespace fs = std::filesystem;
using setup::padded;

namespace {

constexpr int edition = 2;                               // of the rows below: another number makes every company anew
constexpr std::size_t staffMembers = 6, firstMember = 2; // of one office

struct Cell {
    const char* column;
    std::string value;
};
using Cells = std::vector<Cell>;

// Names come again in the order of their numbers; each of them is to be at every member of the staff.
std::string staffOf(std::size_t number) {
    return padded(firstMember + number * 7919 / 64 % staffMembers, 5);
}

const char* areaOf(std::size_t number) {
    return setup::areaCodes[number % std::size(setup::areaCodes)];
}

Cells customer(std::size_t number) {
    const setup::Party party = setup::company(number, areaOf(number));
    return {{"コード", padded(1 + number, 6)},
            {"略称", party.shortName},
            {"カナ", party.kana},
            {"担当者コード", staffOf(number)},
            {"名称A", party.name},
            {"名称B", number % 5 == 0 ? "資材部購買課" : ""},
            {"郵便番号", party.postalCode},
            {"住所A", party.addressA},
            {"住所B", party.addressB},
            {"住所C", ""},
            {"電話", party.telephone},
            {"FAX", party.fax},
            {"HOMEPAGE", party.homepage},
            {"EMAIL", party.email},
            {"取引状況区分", number % 23 == 7 ? "0" : "1"},
            {"電話番号", setup::digitsOf(party.telephone)},
            {"ユーザID", "yamada00001KESTREL"},
            {"登録日付", "20240115 101500"}};
}

Cells contact(std::size_t customers, std::size_t number) {
    return {{"得意先コード", padded(1 + number % customers, 6)},
            {"電話番号", "0900" + padded(number * 7919 % 10'000'000, 7)}};
}

Cells roster(std::size_t number) {
    return {{"事業所コード", rosterOffice},
            {"番号基準日付", rosterBaseDate},
            {"名簿No", padded(1 + number, 8)},
            {"名簿日付", padded(20240401 + number % 28, 8)},
            {"担当者コード", staffOf(number)},
            {"部門コード", "001"},
            {"セクションコード", "001"},
            {"名簿名称", (number % 4 == 0 ? "春の案内 " : "展示会の招待 ") + std::to_string(number)},
            {"発送日付", "20240510"}};
}

Cells addressee(std::size_t rosterNumber, std::size_t place, std::size_t serial) {
    const setup::Party party = setup::company(serial, areaOf(serial));
    return {{"事業所コード", rosterOffice},
            {"番号基準日付", rosterBaseDate},
            {"名簿No", padded(1 + rosterNumber, 8)},
            {"名簿宛先No", padded(1 + place, 6)},
            {"名簿日付", padded(20240401 + rosterNumber % 28, 8)},
            {"担当者コード", staffOf(rosterNumber)},
            {"部門コード", "001"},
            {"セクションコード", "001"},
            {"宛先名称A", party.name},
            {"宛先名称B", serial % 3 == 0 ? "総務部" : ""},
            {"宛先名称C", serial % 2 == 0 ? party.person.name : ""},
            {"宛先郵便番号", party.postalCode},
            {"宛先住所A", party.addressA},
            {"宛先住所B", party.addressB},
            {"宛先住所C", ""},
            {"宛先電話", party.telephone},
            {"宛先電話番号", setup::digitsOf(party.telephone)},
            {"法人個人区分", "1"},
            {"発送区分", "0"},
            {"ユーザID", "yamada00001KESTREL"},
            {"登録日付", "20240115 101500"}};
}

Cells postalCode(std::size_t number) {
    static constexpr const char* blocks[] = {"", "", "一丁目", "二丁目", "三丁目（１～１９番）"};
    const setup::Town& town = setup::towns()[number % setup::towns().size()];
    const std::string digits = padded(1'000'000 + number * 71, 7);
    return {{"郵便番号", digits.substr(0, 3) + "-" + digits.substr(3)},
            {"住所A", town.municipality},
            {"住所B", town.name + blocks[number % std::size(blocks)]}};
}

// One INSERT for all rows of a table, compiled with the first row, whose columns the others have too.
class Loader {
public:
    Loader(RawDatabase& itsDatabase, const char* itsTable) : database(itsDatabase), table(itsTable) {
        database.run("DELETE FROM " + table);
    }
    ~Loader() { sqlite3_finalize(insert); }
    Loader(const Loader&) = delete;
    Loader& operator=(const Loader&) = delete;

    void add(const Cells& row) {
        if (!insert) insert = database.prepared(textFor(row));
        int place = 0;
        for (const Cell& cell : row)
            sqlite3_bind_text(insert, ++place, cell.value.c_str(), static_cast<int>(cell.value.size()), SQLITE_STATIC);
        if (sqlite3_step(insert) != SQLITE_DONE) database.end(table);
        sqlite3_reset(insert);
    }

private:
    std::string textFor(const Cells& row) const {
        std::string columns, values;
        for (const Cell& cell : row) {
            columns += (columns.empty() ? "" : ", ") + std::string(cell.column);
            values += values.empty() ? "?" : ", ?";
        }
        return "INSERT INTO " + table + " (" + columns + ") VALUES (" + values + ")";
    }

    RawDatabase& database;
    const std::string table;
    sqlite3_stmt* insert = nullptr;
};

void addAddressees(RawDatabase& database, const CompanySize& size) {
    Loader rosters(database, "T名簿"), addressees(database, "T名簿明細");
    const std::size_t each = size.rosters > 0 ? size.addressees / size.rosters - 1 : 0;
    std::size_t serial = 0;
    for (std::size_t number = 0; number < size.rosters; ++number) {
        rosters.add(roster(number));
        const std::size_t count = number == 0 ? size.addressees - each * (size.rosters - 1) : each;
        for (std::size_t place = 0; place < count; ++place) addressees.add(addressee(number, place, serial++));
    }
}

template <class Make> void addRows(RawDatabase& database, const char* table, std::size_t count, Make make) {
    Loader rows(database, table);
    for (std::size_t number = 0; number < count; ++number) rows.add(make(number));
}

void fill(const std::string& path, const CompanySize& size) {
    RawDatabase database(path);
    for (const char* sql : {"PRAGMA synchronous=OFF", "PRAGMA journal_mode=DELETE", "BEGIN"}) database.run(sql);
    addRows(database, "M得意先", size.customers, customer);
    addRows(database, "M得意先御担当者", size.contacts,
            [&](std::size_t number) { return contact(size.customers, number); });
    addRows(database, "M郵便番号", size.postalCodes, postalCode);
    addAddressees(database, size);
    database.run("COMMIT");
}

std::string beginningOfName(const CompanySize& size) {
    std::string text;
    for (const std::size_t count : {size.customers, size.contacts, size.rosters, size.addressees, size.postalCodes})
        text += std::to_string(count) + "-";
    return text;
}

// Another text as soon as the tables are others.
std::string nameOf(const CompanySize& size) {
    std::string made = std::to_string(edition);
    for (const std::string& sql : setup::createStatements("main")) made += sql;
    return beginningOfName(size) + std::to_string(std::hash<std::string>()(made)) + ".db";
}

void removeOlder(const fs::path& folder, const CompanySize& size) {
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().filename().string().starts_with(beginningOfName(size))) fs::remove(entry.path());
}

} // namespace

std::string companyFile(const CompanySize& size) {
    const fs::path folder = KESTREL_BENCH_FOLDER, file = folder / nameOf(size);
    if (fs::exists(file)) return file.string();
    fs::create_directories(folder);
    removeOlder(folder, size);
    std::fprintf(stderr, "making a company with %zu customers ...\n", size.customers);
    const Installation made(setup::What::full, Where::memory);
    fill(made.mainFile(), size);
    const fs::path unfinished = folder / "unfinished";
    fs::copy_file(made.mainFile(), unfinished, fs::copy_options::overwrite_existing);
    fs::rename(unfinished, file);
    return file.string();
}

Company::Company(const CompanySize& size) : file(companyFile(size)), installed(setup::What::full, Where::memory) {
    fs::remove(installed.mainFile());
    fs::create_symlink(file, installed.mainFile());
}

} // namespace kestrel::bench
