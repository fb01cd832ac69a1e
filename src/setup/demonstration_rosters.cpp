// Rosters of two fiscal years with their addressees, the registers that their numbers came from, and the telephone
// directory.
#include "setup/demonstration.hpp"

#include "setup/tsv.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"

#include <map>

namespace kestrel::setup {

namespace {

constexpr const char* rosterRegister = "16310";

struct Year {
    std::string first, last; // "yyyymmdd"
};

// The company closes at the end of March.
Year fiscalYear(std::string_view day, long long offset) {
    const long long year = text::leadingNumber(day.substr(0, 4)) - (day.substr(4, 2) < "04" ? 1 : 0) + offset;
    return {text::zeroFilled(year, 4) + "0401", text::zeroFilled(year + 1, 4) + "0331"};
}

long long daysBetween(const std::string& from, const std::string& to) {
    long long days = 0;
    while (dayFrom(from, days) < to) ++days;
    return days;
}

struct Roster {
    std::string office, baseDate, number, day, staff, department, section;
    Value name;
    std::string dispatched;
    std::size_t addressees = 0;
    std::string areaCode;
};

// A year that is not over yet counts up to the day; a roster lies at so many thousandths of the time.
std::string rosterDay(const Year& year, std::string_view day, std::string_view thousandths) {
    const std::string end = std::min(year.last, std::string(day));
    return dayFrom(year.first, daysBetween(year.first, end) * text::leadingNumber(thousandths) / 1000);
}

Value orNull(std::string_view text) {
    return text.empty() ? Value() : Value(text);
}

Roster rosterFrom(const std::vector<std::string_view>& line, const Place& place) {
    const Year year = fiscalYear(place.day, text::leadingNumber(line[0]));
    Roster roster{std::string(line[2]),
                  year.last,
                  std::string(line[1]),
                  rosterDay(year, place.day, line[3]),
                  std::string(line[4]),
                  std::string(line[5]),
                  std::string(line[6]),
                  orNull(line[7]),
                  "",
                  0,
                  ""};
    roster.addressees = static_cast<std::size_t>(text::leadingNumber(line[8]));
    if (!line[9].empty()) roster.dispatched = dayFrom(roster.day, text::leadingNumber(line[9]));
    if (roster.dispatched > place.day) roster.dispatched.clear();
    roster.areaCode = areaCodes[text::leadingNumber(line[2]) - 1];
    return roster;
}

Row headerRow(const Roster& roster) {
    return {"T名簿",
            {{"事業所コード", roster.office},
             {"番号基準日付", roster.baseDate},
             {"名簿No", roster.number},
             {"名簿日付", roster.day},
             {"担当者コード", orNull(roster.staff)},
             {"部門コード", orNull(roster.department)},
             {"セクションコード", orNull(roster.section)},
             {"名簿名称", roster.name},
             {"発送日付", roster.dispatched}}};
}

// The number as a telephone search has it: digits, one hyphen behind the first group.
std::string searchForm(const std::string& telephone) {
    const std::size_t hyphen = telephone.find('-');
    return hyphen == std::string::npos ? telephone
                                       : telephone.substr(0, hyphen) + "-" + digitsOf(telephone.substr(hyphen));
}

std::string memoText(std::string_view words) {
    return text::replaceAll(words, "\\n", "\r\n");
}

struct Addressee {
    Party party;
    bool isCompany = true;
    std::string customerCode; // empty: no customer
};

// The addressee at that place of all. Two in seven are private persons, one company in four is a customer already.
Addressee chosen(const Staff& staff, const Roster& roster, std::size_t serial, bool example) {
    if (example) return {company(0, "03"), true, ""};
    if (serial % 7 == 2 || serial % 7 == 5) return {privatePerson(serial, roster.areaCode), false, ""};
    if (serial % 4 != 0) return {company(firstProspect + serial % prospects, roster.areaCode), true, ""};
    const std::size_t customer = 1 + serial * 11 % customers;
    return {company(firstCustomer + customer - 1, holderOf(staff, customer).areaCode), true, padded(customer, 6)};
}

void setParty(Row& row, const Addressee& addressee) {
    const Party& party = addressee.party;
    row.set("宛先名称A", party.name);
    row.set("宛先名称B", "");
    row.set("宛先名称C", addressee.isCompany ? "" : party.person.name);
    row.set("宛先郵便番号", party.postalCode);
    row.set("宛先住所A", party.addressA);
    row.set("宛先住所B", party.addressB);
    row.set("宛先住所C", "");
    row.set("宛先電話", party.telephone);
    row.set("宛先FAX", party.fax);
    row.set("宛先電話番号", searchForm(party.telephone));
    row.set("宛先FAX番号", searchForm(party.fax));
    row.set("宛先HOMEPAGE", party.homepage);
    row.set("宛先EMAIL", party.email);
    row.set("法人個人区分", addressee.isCompany ? "1" : "0");
}

void setLetter(Row& row, const Addressee& addressee, Generator& chance) {
    if (addressee.isCompany && chance.oneIn(2)) row.set("宛先名称B", chance.from(words("department")));
    if (addressee.isCompany && chance.oneIn(3)) row.set("宛先名称C", addressee.party.person.name);
    row.set("発送区分", chance.oneIn(8) ? "1" : chance.oneIn(20) ? "2" : "0");
    row.set("宛先摘要", chance.oneIn(5) ? memoText(chance.from(words("memo"))) : "");
}

void setEmpty(Row& row) {
    for (const char* column :
         {"宛先ID", "得意先登録日付", "得意先コード", "納品先登録日付", "納品先コード", "仕入先登録日付",
          "仕入先コード", "メーカ登録日付", "メーカコード", "承認日付", "承認者コード", "承認区分", "更新日付"}) {
        row.set(column, "");
    }
}

void setKey(Row& row, const Roster& roster, std::size_t number) {
    row.set("事業所コード", roster.office);
    row.set("番号基準日付", roster.baseDate);
    row.set("名簿No", roster.number);
    row.set("名簿宛先No", padded(number, 6));
    row.set("名簿日付", roster.day);
    row.set("担当者コード", roster.staff);
    row.set("部門コード", roster.department);
    row.set("セクションコード", roster.section);
    row.set("ユーザID", "yamada" + roster.staff + "KESTREL");
    row.set("登録日付",
            roster.day + " " + padded(9 + number % 8, 2) + padded(number * 7 % 60, 2) + padded(number % 60, 2));
}

Row addresseeRow(const Staff& staff, const Roster& roster, std::size_t number, std::size_t serial, bool example) {
    const Addressee addressee = chosen(staff, roster, serial, example);
    Row row{"T名簿明細", {}};
    setKey(row, roster, number);
    setParty(row, addressee);
    setEmpty(row);
    Generator chance(serial + 3'000'000);
    if (!example) setLetter(row, addressee, chance);
    if (!addressee.customerCode.empty()) {
        row.set("得意先コード", addressee.customerCode);
        row.set("得意先登録日付", roster.day);
    }
    return row;
}

// What the first steps show: company 0, with nothing in the lines that a newcomer is to fill.
void setExample(Row& row) {
    row.set("宛先名称C", "");
    row.set("発送区分", "0");
    row.set("宛先摘要", memoText("新製品のカタログをご希望。\\n次回訪問時に見本を持参する。"));
}

// Some rows came from elsewhere without the lines they had no use for: null, which is not the same as empty.
void setGaps(Row& row, std::size_t serial) {
    if (serial % 61 == 30) row.set("宛先名称B", std::nullopt);
    if (serial % 61 == 45) row.set("宛先名称C", std::nullopt);
}

void addAddressees(Rows& rows, const Staff& staff, const Roster& roster, bool current, std::size_t& serial) {
    for (std::size_t number = 1; number <= roster.addressees; ++number, ++serial) {
        const bool example = current && roster.number == exampleRoster && padded(number, 6) == exampleAddressee;
        Row row = addresseeRow(staff, roster, number, serial, example);
        if (example) {
            setExample(row);
        } else {
            setGaps(row, serial);
        }
        rows.push_back(std::move(row));
    }
}

void addRegister(Rows& rows, const std::string& baseDate, const std::string& last) {
    layOver(rows, {"A期日別番号情報",
                   {{"番号ID", rosterRegister}, {"期日", baseDate}, {"連番", last}, {"履歴連番", "00000000"}}});
}

Row directoryRow(const Row& addressee, const std::string& digits) {
    const auto text = [&](std::string_view column) { return addressee.get(column).value_or(""); };
    return {"M電話番号",
            {{"電話", text("宛先電話")},
             {"名称", text("宛先名称A") + text("宛先名称B") + text("宛先名称C")},
             {"郵便番号", text("宛先郵便番号")},
             {"住所A", text("宛先住所A")},
             {"住所B", text("宛先住所B")},
             {"住所C", text("宛先住所C")},
             {"電話番号", digits},
             {"法人個人区分", text("法人個人区分")},
             {"ユーザID", text("ユーザID")},
             {"登録日付", text("登録日付")}}};
}

// One row for each number; the addressee written last has it.
void addDirectory(Rows& rows) {
    std::map<std::string, Row> byDigits;
    for (const Row& row : rows) {
        if (row.table != "T名簿明細") continue;
        const std::string digits = digitsOf(row.get("宛先電話").value_or(""));
        if (!digits.empty()) byDigits.insert_or_assign(digits, directoryRow(row, digits));
    }
    for (auto& [digits, row] : byDigits) rows.push_back(std::move(row));
}

} // namespace

void addRosters(Rows& rows, const Staff& staff, const Place& place) {
    std::size_t serial = 0;
    for (const auto& line : fieldsOf("rosters")) {
        const Roster roster = rosterFrom(line, place);
        rows.push_back(headerRow(roster));
        addAddressees(rows, staff, roster, line[0] == "0", serial);
        addRegister(rows, roster.baseDate, roster.number);
    }
    addDirectory(rows);
}

} // namespace kestrel::setup
