#include "values/modDirectory.hpp"

#include "data/modGateway.hpp"
#include "platform/clock.hpp"
#include "text/characters.hpp"
#include "values/modValues.hpp"
#include "values/writerStamp.hpp"

#include <string>

namespace kestrel {

namespace {

constexpr std::size_t fewestDigits = 7;

struct DirectoryRow {
    std::string telephone, name, postalCode, addressA, addressB, addressC, digits, classText, stamp;
};

// Telephone text and postal code go in as they stand: an apostrophe in them makes the statement fail.
std::string insertText(const DirectoryRow& row) {
    return "INSERT INTO M電話番号 ("
           "電話,"
           "名称,"
           "郵便番号,"
           "住所A,"
           "住所B,"
           "住所C,"
           "電話番号,"
           "法人個人区分,"
           "ユーザID,"
           "登録日付) "
           "VALUES ('" +
           row.telephone + "', '" + quoteSqlText(row.name) + "', '" + row.postalCode + "', '" +
           quoteSqlText(row.addressA) + "', '" + quoteSqlText(row.addressB) + "', '" + quoteSqlText(row.addressC) +
           "', '" + row.digits + "', '" + row.classText + "', '" + writerStamp() + "', " + row.stamp + ")";
}

std::string updateText(const DirectoryRow& row) {
    return "UPDATE M電話番号 SET "
           "電話 = '" +
           row.telephone + "', 名称 = '" + quoteSqlText(row.name) + "', 郵便番号 = '" + row.postalCode +
           "', 住所A = '" + quoteSqlText(row.addressA) + "', 住所B = '" + quoteSqlText(row.addressB) + "', 住所C = '" +
           quoteSqlText(row.addressC) + "', 法人個人区分 = '" + row.classText + "', ユーザID = '" + writerStamp() +
           "', 更新日付 = " + row.stamp + " WHERE 電話番号 = '" + row.digits + "'";
}

} // namespace

void updatePhoneDirectory(std::string_view telephone, std::string_view name, std::string_view postalCode,
                          std::string_view addressA, std::string_view addressB, std::string_view addressC,
                          int classValue) {
    const std::string stamp = "'" + platform::stampText(platform::now()) + "'";
    if (text::length(text::trim(telephone)) < fewestDigits) return;
    const std::string digits = digitsOnly(telephone);
    if (digits.size() < fewestDigits) return;
    const DirectoryRow row{std::string(telephone),
                           std::string(name),
                           std::string(postalCode),
                           std::string(addressA),
                           std::string(addressB),
                           std::string(addressC),
                           digits,
                           std::to_string(classValue),
                           stamp};
    database::RecordSet found;
    const bool known = openRecordset(found, "SELECT * FROM M電話番号 WHERE 電話番号 = '" + digits + "'", false);
    executeSql(known ? updateText(row) : insertText(row), false); // a failed write must not stop the save behind it
    found.close();
}

} // namespace kestrel
