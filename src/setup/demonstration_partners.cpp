// Customers, delivery destinations, suppliers and makers, with their contact persons.
#include "setup/demonstration.hpp"

namespace kestrel::setup {

namespace {

void setAll(Row& row, std::initializer_list<const char*> columns, const Value& value) {
    for (const char* column : columns) row.set(column, value);
}

// The columns that all four tables have.
Row partner(const std::string& table, std::size_t code, const Party& party, const std::string& staff) {
    Row row{table, {{"コード", padded(code, 6)}, {"略称", party.shortName}, {"カナ", party.kana}}};
    row.set("担当者コード", staff);
    row.set("名称A", party.name);
    row.set("郵便番号", party.postalCode);
    row.set("住所A", party.addressA);
    row.set("住所B", party.addressB);
    row.set("電話", party.telephone);
    row.set("FAX", party.fax);
    row.set("御担当者名", party.person.name);
    row.set("HOMEPAGE", party.homepage);
    row.set("EMAIL", party.email);
    row.set("電話番号", digitsOf(party.telephone));
    row.set("取引状況区分", "1");
    row.set("名称入力区分", "0");
    setAll(row, {"名称B", "住所C", "代表者名", "代表者電話", "担当者電話", "地区コード", "備考A", "備考B", "備考C"},
           "");
    setAll(row, {"取引停止日付", "取引終了日付"}, "");
    return row;
}

void setWritten(Row& row, const Place& place, std::size_t number) {
    const long long daysAgo = static_cast<long long>(60 + number * 53 % 2400);
    row.set("通常取引日付", dayFrom(place.day, -daysAgo));
    row.set("ユーザID", "yamada00001KESTREL");
    row.set("登録日付", stamp(place, daysAgo, number));
}

// Now and then the dealings have stopped or ended.
void setStatus(Row& row, const Place& place, std::size_t number) {
    const std::string when = dayFrom(place.day, -static_cast<long long>(10 + number * 31 % 40));
    if (number % 23 == 7) {
        row.set("取引状況区分", "0");
        row.set("取引停止日付", when);
    } else if (number % 29 == 11) {
        row.set("取引状況区分", "2");
        row.set("取引終了日付", when);
    }
}

void setPayment(Row& row) {
    row.set("締日区分", "1");
    row.set("締日", "99");
    setAll(row, {"決済方法", "決済月", "消費税区分", "消費税算出区分", "科目区分"}, "1");
    row.set("決済日", "20");
    setAll(row, {"現金決済金額", "消費税丸め桁位置", "消費税端数調整区分"}, "0");
    row.set("消費税丸め方法", "5");
    row.set("手形サイト", "");
}

// Some records came without a second line or a reading: their columns are null.
void setGaps(Row& row, std::size_t number) {
    if (number % 37 == 5) row.set("名称B", std::nullopt);
    if (number % 41 == 9) row.set("カナ", std::nullopt);
    if (number % 97 == 13) row.set("略称", std::nullopt);
}

void addContacts(Rows& rows, const std::string& kind, std::size_t code, const Party& party) {
    const std::size_t count = code % 4 == 0 ? 2 : code % 4 == 1 ? 1 : 0;
    for (std::size_t i = 0; i < count; ++i) {
        const Party contact =
            privatePerson(10'000 * kind.size() + 2 * code + i, party.telephone.substr(0, party.telephone.find('-')));
        if (contact.telephone.empty()) continue;
        rows.push_back(
            {"M" + kind + "御担当者", {{kind + "コード", padded(code, 6)}, {"電話番号", digitsOf(contact.telephone)}}});
    }
}

Row customerRow(const std::string& staff, std::size_t number, const Party& party) {
    static constexpr const char* rates[] = {"100", "95", "90", "85", "80"};
    Row row = partner("M得意先", number, party, staff);
    row.set("得意先分類コード", padded(1 + number % 5, 2));
    row.set("定価掛率", rates[number % std::size(rates)]);
    row.set("ランク", number % 3 == 0 ? "A" : number % 3 == 1 ? "B" : "");
    row.set("請求書区分", "0");
    row.set("集計得意先コード", padded(number, 6));
    row.set("得意先メモ", "");
    setAll(row, {"納品書帳票名", "納品書行数", "合計請求書帳票名", "明細請求書帳票名", "明細請求書行数"}, "");
    setPayment(row);
    return row;
}

Row deliveryRow(const std::string& staff, std::size_t number, std::size_t customer, const Party& party) {
    Generator chance(number + 2'000'000);
    Row row = partner("M納品先", number, party, staff);
    row.set("名称B", chance.from(words("branch")));
    row.set("納品先分類コード", "99");
    row.set("在庫場所区分", "0");
    row.set("集計納品先コード", padded(number, 6));
    row.set("得意先コード", padded(customer, 6));
    row.set("仕入先コード", "");
    row.set("納品先メモ", "");
    return row;
}

Row supplierRow(const std::string& staff, std::size_t code, const Party& party) {
    Row row = partner("M仕入先", code, party, staff);
    row.set("仕入先分類コード", "99");
    row.set("集計仕入先コード", padded(code, 6));
    row.set("振込区分", "0");
    row.set("仕入費用科目", "");
    row.set("仕入先メモ", "");
    setPayment(row);
    return row;
}

Row makerRow(const std::string& staff, std::size_t code, const Party& party) {
    Row row = partner("Mメーカ", code, party, staff);
    row.set("メーカ分類コード", "99");
    row.set("仕入先コード", code <= suppliers ? padded(code, 6) : "");
    row.set("メーカメモ", "");
    return row;
}

void addPartner(Rows& rows, const Place& place, const std::string& kind, std::size_t code, const Party& party,
                Row row) {
    setWritten(row, place, code);
    setStatus(row, place, code);
    setGaps(row, code);
    rows.push_back(std::move(row));
    addContacts(rows, kind, code, party);
}

} // namespace

void addPartners(Rows& rows, const Staff& staff, const Place& place) {
    for (std::size_t code = 1; code <= customers; ++code) {
        const Holder holder = holderOf(staff, code);
        const Party party = company(firstCustomer + code - 1, holder.areaCode);
        addPartner(rows, place, "得意先", code, party, customerRow(holder.staff, code, party));
    }
    for (std::size_t code = 1; code <= deliveries; ++code) {
        const std::size_t customer = 1 + (code - 1) * 3;
        const Holder holder = holderOf(staff, customer);
        const Party party = company(firstCustomer + customer - 1, holder.areaCode);
        addPartner(rows, place, "納品先", code, party, deliveryRow(holder.staff, code, customer, party));
    }
    for (std::size_t code = 1; code <= suppliers; ++code) {
        const Holder holder = holderOf(staff, code);
        const Party party = company(firstSupplier + code - 1, holder.areaCode);
        addPartner(rows, place, "仕入先", code, party, supplierRow(holder.staff, code, party));
    }
    for (std::size_t code = 1; code <= makers; ++code) {
        const Holder holder = holderOf(staff, code);
        const Party party = company(firstMaker + code - 1, holder.areaCode);
        addPartner(rows, place, "メーカ", code, party, makerRow(holder.staff, code, party));
    }
}

} // namespace kestrel::setup
