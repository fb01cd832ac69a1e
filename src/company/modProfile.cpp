#include "company/modProfile.hpp"

#include "company/modOffices.hpp"
#include "company/sharedFolders.hpp"
#include "data/modGateway.hpp"
#include "session/companyValues.hpp"
#include "session/sessionValues.hpp"
#include "values/columns.hpp"
#include "values/modValues.hpp"

namespace kestrel {

namespace {

constexpr Column<CompanyValues> profileColumns[] = {
    {"名称", &CompanyValues::名称},
    {"郵便番号", &CompanyValues::郵便番号},
    {"住所A", &CompanyValues::住所A},
    {"住所B", &CompanyValues::住所B},
    {"住所C", &CompanyValues::住所C},
    {"代表者名", &CompanyValues::代表者名},
    {"電話", &CompanyValues::電話},
    {"FAX", &CompanyValues::FAX},
    {"HOMEPAGE", &CompanyValues::HOMEPAGE},
    {"EMAIL", &CompanyValues::EMAIL},
    {"会社ロゴfile", &CompanyValues::会社ロゴfile},
    {"社印file", &CompanyValues::社印file},
    {"銀行口座A", &CompanyValues::銀行口座A},
    {"銀行口座B", &CompanyValues::銀行口座B},
    {"銀行口座C", &CompanyValues::銀行口座C},
    {"銀行口座D", &CompanyValues::銀行口座D},
    {"決算月", &CompanyValues::決算月},
    {"決算日", &CompanyValues::決算日},
    {"締日区分", &CompanyValues::締日区分},
    {"締日", &CompanyValues::締日},
    {"決済方法", &CompanyValues::決済方法},
    {"決済月", &CompanyValues::決済月},
    {"決済日", &CompanyValues::決済日},
    {"現金決済金額", &CompanyValues::現金決済金額},
    {"手形サイト", &CompanyValues::手形サイト},
    {"売上金額丸め方法", &CompanyValues::売上金額丸め方法},
    {"仕入金額丸め方法", &CompanyValues::仕入金額丸め方法},
    {"在庫評価方法", &CompanyValues::在庫評価方法},
    {"売上単価少数以下桁数", &CompanyValues::売上単価少数以下桁数},
    {"売上数量少数以下桁数", &CompanyValues::売上数量少数以下桁数},
    {"仕入単価少数以下桁数", &CompanyValues::仕入単価少数以下桁数},
    {"仕入数量少数以下桁数", &CompanyValues::仕入数量少数以下桁数},
    {"在庫単価少数以下桁数", &CompanyValues::在庫単価少数以下桁数},
    {"在庫数量少数以下桁数", &CompanyValues::在庫数量少数以下桁数},
    {"重量少数以下桁数", &CompanyValues::重量少数以下桁数},
    {"得意先単価自動更新区分", &CompanyValues::得意先単価自動更新区分},
    {"納品先単価自動更新区分", &CompanyValues::納品先単価自動更新区分},
    {"仕入先単価自動更新区分", &CompanyValues::仕入先単価自動更新区分},
    {"写真フォルダ", &CompanyValues::写真フォルダ},
    {"ドキュメントフォルダ", &CompanyValues::documentFolder},
    {"明細保存月数", &CompanyValues::明細保存月数},
    {"統計保存年数", &CompanyValues::統計保存年数},
    {"整理実施可能日自", &CompanyValues::整理実施可能日自},
    {"整理実施可能日至", &CompanyValues::整理実施可能日至},
    {"整理実施可能時刻", &CompanyValues::整理実施可能時刻},
    {"明細整理実行日", &CompanyValues::明細整理実行日},
    {"統計整理実行日", &CompanyValues::統計整理実行日},
    {"伝票番号管理区分", &CompanyValues::伝票番号管理区分},
    {"暗証番号有無", &CompanyValues::pinRequired},
    {"更新実行区分", &CompanyValues::更新実行区分},
    {"登録日付", &CompanyValues::登録日付},
    {"更新日付", &CompanyValues::更新日付},
};

bool readProfile() {
    database::RecordSet records;
    const bool found = openRecordset(records, "SELECT * FROM Mユーザ WHERE ID = '0001'", false);
    if (found) {
        takeColumns(records, profileColumns, company);
        takeColumns(records, sharedFolderColumns, company.folders);
    }
    records.close();
    return found;
}

// An office that isn't there any more gives way to the whole company, also in the installation's own definition.
void settleOperatingOffice() {
    database::RecordSet records;
    if (!openOffice(records, installation.operatingOffice)) {
        records.close();
        openOffice(records, zeroString(3));
        setOperatingOffice(zeroString(3));
    }
    records.close();
}

void countOffices() {
    company.officeCount = 0;
    database::RecordSet records;
    if (openRecordset(records, "SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'", false))
        takeColumn(records, "事業所件数", company.officeCount);
    records.close();
}

} // namespace

bool loadCompanyProfile() {
    const bool found = readProfile();
    settleOperatingOffice();
    loadLinkedBusiness();
    loadOffice();
    countOffices();
    return found;
}

} // namespace kestrel
