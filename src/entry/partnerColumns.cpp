// What is written into each of the four partner tables, column by column in the order of the insert. The constants are
// what the suite's own programs for these tables expect of a partner of whom nothing more is known.
#include "entry/modPartners.hpp"

namespace kestrel {

namespace {

using Kind = PartnerValue::Kind;
using S = RosterSession;
using C = CompanyValues;

constexpr PartnerValue fixed(std::string_view text) {
    return {.kind = Kind::fixed, .text = text};
}
constexpr PartnerValue asHeld(std::string S::*held) {
    return {.kind = Kind::asHeld, .held = held};
}
constexpr PartnerValue quoted(std::string S::*held) {
    return {.kind = Kind::quoted, .held = held};
}
constexpr PartnerValue term(std::int16_t C::*value, int width) {
    return {.kind = Kind::term, .term = value, .width = width};
}

constexpr PartnerValue empty = fixed("");
constexpr PartnerValue zero{.kind = Kind::bare, .text = "0"};
constexpr PartnerValue code{.kind = Kind::code};
constexpr PartnerValue shortName{.kind = Kind::shortName};
constexpr PartnerValue searchTelephone{.kind = Kind::searchTelephone};
constexpr PartnerValue today{.kind = Kind::today};
constexpr PartnerValue writer{.kind = Kind::writer};
constexpr PartnerValue now{.kind = Kind::now};

// clang-format off: one line a group, the four tables beside each other
constexpr PartnerColumn customer[] = {
    {"コード", code},
    {"略称", shortName},
    {"カナ", empty},
    {"得意先分類コード", fixed("99")},
    {"担当者コード", asHeld(&S::担当者コード)},
    {"定価掛率", zero},
    {"ランク", empty},
    {"取引状況区分", fixed("1")},
    {"名称A", quoted(&S::宛先名称A)},
    {"名称B", quoted(&S::宛先名称B)},
    {"郵便番号", asHeld(&S::宛先郵便番号)},
    {"住所A", quoted(&S::宛先住所A)},
    {"住所B", quoted(&S::宛先住所B)},
    {"住所C", quoted(&S::宛先住所C)},
    {"電話", asHeld(&S::宛先電話)},
    {"FAX", asHeld(&S::宛先FAX)},
    {"代表者名", empty},
    {"代表者電話", empty},
    {"御担当者名", quoted(&S::宛先名称C)},
    {"担当者電話", empty},
    {"HOMEPAGE", quoted(&S::宛先HOMEPAGE)},
    {"EMAIL", quoted(&S::宛先EMAIL)},
    {"締日区分", fixed("1")},
    {"締日", fixed("99")},
    {"決済方法", fixed("1")},
    {"決済月", fixed("1")},
    {"決済日", fixed("20")},
    {"現金決済金額", zero},
    {"手形サイト", empty},
    {"請求書区分", fixed("0")},
    {"消費税区分", fixed("1")},
    {"消費税算出区分", fixed("1")},
    {"消費税丸め方法", fixed("5")},
    {"消費税丸め桁位置", fixed("0")},
    {"消費税端数調整区分", fixed("0")},
    {"集計得意先コード", code},
    {"地区コード", empty},
    {"科目区分", fixed("1")},
    {"備考A", empty},
    {"備考B", empty},
    {"備考C", empty},
    {"名称入力区分", fixed("0")},
    {"納品書帳票名", empty},
    {"納品書行数", empty},
    {"合計請求書帳票名", empty},
    {"明細請求書帳票名", empty},
    {"明細請求書行数", empty},
    {"得意先メモ", quoted(&S::宛先摘要)},
    {"電話番号", searchTelephone},
    {"通常取引日付", today},
    {"取引停止日付", empty},
    {"取引終了日付", empty},
    {"ユーザID", writer},
    {"登録日付", now},
};

// 得意先コード and 仕入先コード are those of the destination's own partners, which nobody knows yet: not the session's.
constexpr PartnerColumn delivery[] = {
    {"コード", code},
    {"略称", shortName},
    {"カナ", empty},
    {"納品先分類コード", fixed("99")},
    {"担当者コード", asHeld(&S::担当者コード)},
    {"在庫場所区分", fixed("0")},
    {"取引状況区分", fixed("1")},
    {"名称A", quoted(&S::宛先名称A)},
    {"名称B", quoted(&S::宛先名称B)},
    {"郵便番号", asHeld(&S::宛先郵便番号)},
    {"住所A", quoted(&S::宛先住所A)},
    {"住所B", quoted(&S::宛先住所B)},
    {"住所C", quoted(&S::宛先住所C)},
    {"電話", asHeld(&S::宛先電話)},
    {"FAX", asHeld(&S::宛先FAX)},
    {"代表者名", empty},
    {"代表者電話", empty},
    {"御担当者名", quoted(&S::宛先名称C)},
    {"担当者電話", empty},
    {"HOMEPAGE", quoted(&S::宛先HOMEPAGE)},
    {"EMAIL", quoted(&S::宛先EMAIL)},
    {"集計納品先コード", code},
    {"得意先コード", empty},
    {"仕入先コード", empty},
    {"地区コード", empty},
    {"備考A", empty},
    {"備考B", empty},
    {"備考C", empty},
    {"名称入力区分", fixed("0")},
    {"納品先メモ", quoted(&S::宛先摘要)},
    {"電話番号", searchTelephone},
    {"通常取引日付", today},
    {"取引停止日付", empty},
    {"取引終了日付", empty},
    {"ユーザID", writer},
    {"登録日付", now},
};

// Who is paid is paid on the company's own terms.
constexpr PartnerColumn supplier[] = {
    {"コード", code},
    {"略称", shortName},
    {"カナ", empty},
    {"仕入先分類コード", fixed("99")},
    {"担当者コード", asHeld(&S::担当者コード)},
    {"取引状況区分", fixed("1")},
    {"名称A", quoted(&S::宛先名称A)},
    {"名称B", quoted(&S::宛先名称B)},
    {"郵便番号", asHeld(&S::宛先郵便番号)},
    {"住所A", quoted(&S::宛先住所A)},
    {"住所B", quoted(&S::宛先住所B)},
    {"住所C", quoted(&S::宛先住所C)},
    {"電話", asHeld(&S::宛先電話)},
    {"FAX", asHeld(&S::宛先FAX)},
    {"代表者名", empty},
    {"代表者電話", empty},
    {"御担当者名", quoted(&S::宛先名称C)},
    {"担当者電話", empty},
    {"HOMEPAGE", quoted(&S::宛先HOMEPAGE)},
    {"EMAIL", quoted(&S::宛先EMAIL)},
    {"締日区分", term(&C::締日区分, 1)},
    {"締日", term(&C::締日, 2)},
    {"決済方法", term(&C::決済方法, 1)},
    {"決済月", term(&C::決済月, 1)},
    {"決済日", term(&C::決済日, 2)},
    {"現金決済金額", zero},
    {"手形サイト", empty},
    {"消費税区分", fixed("1")},
    {"消費税算出区分", fixed("1")},
    {"消費税丸め方法", fixed("5")},
    {"消費税丸め桁位置", fixed("0")},
    {"消費税端数調整区分", fixed("0")},
    {"集計仕入先コード", code},
    {"地区コード", empty},
    {"振込区分", fixed("0")},
    {"科目区分", fixed("1")},
    {"仕入費用科目", empty},
    {"備考A", empty},
    {"備考B", empty},
    {"備考C", empty},
    {"名称入力区分", fixed("0")},
    {"仕入先メモ", quoted(&S::宛先摘要)},
    {"電話番号", searchTelephone},
    {"通常取引日付", today},
    {"取引停止日付", empty},
    {"取引終了日付", empty},
    {"ユーザID", writer},
    {"登録日付", now},
};

// 仕入先コード is the maker's own supplier, not the session's.
constexpr PartnerColumn maker[] = {
    {"コード", code},
    {"略称", shortName},
    {"カナ", empty},
    {"メーカ分類コード", fixed("99")},
    {"担当者コード", asHeld(&S::担当者コード)},
    {"取引状況区分", fixed("1")},
    {"名称A", quoted(&S::宛先名称A)},
    {"名称B", quoted(&S::宛先名称B)},
    {"郵便番号", asHeld(&S::宛先郵便番号)},
    {"住所A", quoted(&S::宛先住所A)},
    {"住所B", quoted(&S::宛先住所B)},
    {"住所C", quoted(&S::宛先住所C)},
    {"電話", asHeld(&S::宛先電話)},
    {"FAX", asHeld(&S::宛先FAX)},
    {"代表者名", empty},
    {"代表者電話", empty},
    {"御担当者名", quoted(&S::宛先名称C)},
    {"担当者電話", empty},
    {"HOMEPAGE", quoted(&S::宛先HOMEPAGE)},
    {"EMAIL", quoted(&S::宛先EMAIL)},
    {"仕入先コード", empty},
    {"地区コード", empty},
    {"備考A", empty},
    {"備考B", empty},
    {"備考C", empty},
    {"名称入力区分", fixed("0")},
    {"メーカメモ", quoted(&S::宛先摘要)},
    {"電話番号", searchTelephone},
    {"通常取引日付", today},
    {"取引停止日付", empty},
    {"取引終了日付", empty},
    {"ユーザID", writer},
    {"登録日付", now},
};

constexpr Partner table[] = {
    {"btn_得意先登録", "得意先コード", &S::得意先コード, &S::得意先登録日付, "M得意先", &S::customerRecords,
     "この宛先を得意先として登録します。", customer, ", "},
    {"btn_納品先登録", "納品先コード", &S::納品先コード, &S::納品先登録日付, "M納品先", &S::deliveryRecords,
     "この宛先を納品先として登録します。", delivery, ", "},
    {"btn_仕入先登録", "仕入先コード", &S::仕入先コード, &S::仕入先登録日付, "M仕入先", &S::supplierRecords,
     "この宛先を仕入先として登録します。", supplier, ","},
    {"btn_メーカ登録", "メーカコード", &S::メーカコード, &S::メーカ登録日付, "Mメーカ", &S::makerRecords,
     "この宛先をメーカとして登録します。", maker, ",", Searched::allRows},
};
// clang-format on

} // namespace

std::span<const Partner> partners() {
    return table;
}

} // namespace kestrel
