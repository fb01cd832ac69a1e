#include "company/modOffices.hpp"

#include "company/pinCodec.hpp"
#include "company/sharedFolders.hpp"
#include "data/modGateway.hpp"
#include "session/companyValues.hpp"
#include "session/sessionValues.hpp"
#include "values/columns.hpp"
#include "values/modValues.hpp"

#include <iterator>

namespace kestrel {

namespace {

constexpr Column<OfficeValues> officeColumns[] = {
    {"郵便番号", &OfficeValues::郵便番号},
    {"住所A", &OfficeValues::住所A},
    {"住所B", &OfficeValues::住所B},
    {"住所C", &OfficeValues::住所C},
    {"代表者名", &OfficeValues::代表者名},
    {"電話", &OfficeValues::電話},
    {"FAX", &OfficeValues::FAX},
    {"登録番号", &OfficeValues::登録番号},
    {"HOMEPAGE", &OfficeValues::HOMEPAGE},
    {"EMAIL", &OfficeValues::EMAIL},
    {"銀行口座A", &OfficeValues::銀行口座A},
    {"銀行口座B", &OfficeValues::銀行口座B},
    {"銀行口座C", &OfficeValues::銀行口座C},
    {"銀行口座D", &OfficeValues::銀行口座D},
    {"地区コード", &OfficeValues::地区コード},
    {"暗証番号有無", &OfficeValues::暗証番号有無},
    {"更新実行区分", &OfficeValues::更新実行区分},
};

constexpr Column<LinkedBusiness> linkedColumns[] = {
    {"業務名", &LinkedBusiness::業務名},
    {"連携有無区分", &LinkedBusiness::連携有無区分},
    {"連携DB", &LinkedBusiness::連携DB},
    {"連携DBMW", &LinkedBusiness::連携DBMW},
    {"連携データソース名", &LinkedBusiness::連携データソース名},
    {"連携ドライバ名", &LinkedBusiness::連携ドライバ名},
    {"連携接続文字列", &LinkedBusiness::連携接続文字列},
    {"連携データベース名", &LinkedBusiness::連携データベース名},
    {"連携サーバー名", &LinkedBusiness::連携サーバー名},
    {"連携ユーザーID", &LinkedBusiness::連携ユーザーID},
    {"連携パスワード", &LinkedBusiness::連携パスワード},
    {"連携アプリフォルダ", &LinkedBusiness::連携アプリフォルダ},
    {"顧客更新有無区分", &LinkedBusiness::顧客更新有無区分},
    {"得意先更新有無区分", &LinkedBusiness::得意先更新有無区分},
    {"納品先更新有無区分", &LinkedBusiness::納品先更新有無区分},
    {"仕入先更新有無区分", &LinkedBusiness::仕入先更新有無区分},
    {"メーカ更新有無区分", &LinkedBusiness::メーカ更新有無区分},
    {"対応先更新有無区分", &LinkedBusiness::対応先更新有無区分},
    {"商品更新有無区分", &LinkedBusiness::商品更新有無区分},
    {"社員更新有無区分", &LinkedBusiness::社員更新有無区分},
};

// The fifth slot reads the row of the fourth once more; the suite counts on five.
constexpr std::string_view linkedCodes[] = {"003", "002", "004", "005", "005"};

void takeOffice(const database::RecordSet& row) {
    takeColumn(row, "コード", installation.operatingOffice);
    takeColumn(row, "名称", company.officeName);
    takeColumns(row, officeColumns, company.office);
    takeColumns(row, sharedFolderColumns, company.office.folders);
    if (const auto stored = row.textOrNull("特権暗証番号")) company.officePrivilegedPin = decode(*stored);
}

void overrideCompany() {
    company.pinRequired = company.office.暗証番号有無;
    company.更新実行区分 = company.office.更新実行区分;
    for (const auto& column : sharedFolderColumns) {
        const auto folder = std::get<std::string SharedFolders::*>(column.member);
        if (!(company.office.folders.*folder).empty()) company.folders.*folder = company.office.folders.*folder;
    }
}

void loadLinked(LinkedBusiness& slot) {
    database::RecordSet records;
    if (openRecordset(records, "SELECT TOP 1 * FROM M他業務連携 WHERE コード = '" + slot.code + "'", false))
        takeColumns(records, linkedColumns, slot);
    records.close();
}

} // namespace

bool openOffice(database::RecordSet& slot, std::string_view code) {
    return openRecordset(slot, "SELECT * FROM M事業所 WHERE コード = '" + std::string(code) + "'", false);
}

void loadLinkedBusiness() {
    company.linkedCount = static_cast<int>(std::size(linkedCodes));
    for (std::size_t i = 0; i < std::size(linkedCodes); ++i) {
        company.linked[i].code = linkedCodes[i];
        loadLinked(company.linked[i]);
    }
}

void setOperatingOffice(const std::string& code) {
    installation.operatingOffice = code;
    executeLocalSqlLogged("UPDATE 動作環境定義 SET  運用事業所コード = '" + code + "' WHERE 動作環境定義ID = '001'");
}

void loadOffice() {
    database::RecordSet records;
    bool found = openOffice(records, installation.operatingOffice);
    if (!found) {
        records.close();
        found = openOffice(records, zeroString(3));
        setOperatingOffice(zeroString(3));
    }
    if (found) takeOffice(records);
    if (installation.operatingOffice != zeroString(3)) overrideCompany();
    records.close();
}

} // namespace kestrel
