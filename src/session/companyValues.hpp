// The session values of the company and its operating office, read once at start-up. A null column leaves a value empty
// or 0. Part of what resetSession() puts back.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace kestrel {

// How the suite reaches one linked business system. Shared session data of the suite; no operation here reads it.
struct LinkedBusiness {
    std::string code;
    std::string 業務名, 連携DB, 連携DBMW, 連携データソース名, 連携ドライバ名, 連携接続文字列, 連携データベース名;
    std::string 連携サーバー名, 連携ユーザーID, 連携パスワード, 連携アプリフォルダ;
    std::int16_t 連携有無区分 = 0;
    std::int16_t 顧客更新有無区分 = 0, 得意先更新有無区分 = 0, 納品先更新有無区分 = 0, 仕入先更新有無区分 = 0;
    std::int16_t メーカ更新有無区分 = 0, 対応先更新有無区分 = 0, 商品更新有無区分 = 0, 社員更新有無区分 = 0;
};

// What the company and its office both may say: the office's word replaces the company's.
struct SharedFolders {
    std::string 総合振込ファイル, 基本読込フォルダ, 帳票イメージフォルダ, その他読込ファイル;
    std::string 本支店連携フォルダ, テキスト出力フォルダ, BACKUPフォルダ;
};

struct OfficeValues {
    std::string 郵便番号, 住所A, 住所B, 住所C, 代表者名, 電話, FAX, 登録番号, HOMEPAGE, EMAIL;
    std::string 銀行口座A, 銀行口座B, 銀行口座C, 銀行口座D, 地区コード;
    SharedFolders folders;
    std::int16_t 暗証番号有無 = 0, 更新実行区分 = 0;
};

struct CompanyValues {
    std::string 名称, 郵便番号, 住所A, 住所B, 住所C, 代表者名, 電話, FAX, HOMEPAGE, EMAIL;
    std::string 会社ロゴfile, 社印file, 銀行口座A, 銀行口座B, 銀行口座C, 銀行口座D;
    std::int16_t 決算月 = 0, 決算日 = 0; // when the accounts close
    std::int16_t 締日区分 = 0, 締日 = 0; // these five: defaults of a new partner
    std::int16_t 決済方法 = 0, 決済月 = 0, 決済日 = 0;
    std::string 現金決済金額; // money, as its text
    std::int16_t 手形サイト = 0, 売上金額丸め方法 = 0, 仕入金額丸め方法 = 0, 在庫評価方法 = 0;
    std::int16_t 売上単価少数以下桁数 = 0, 売上数量少数以下桁数 = 0, 仕入単価少数以下桁数 = 0, 仕入数量少数以下桁数 = 0;
    std::int16_t 在庫単価少数以下桁数 = 0, 在庫数量少数以下桁数 = 0, 重量少数以下桁数 = 0;
    std::int16_t 得意先単価自動更新区分 = 0, 納品先単価自動更新区分 = 0, 仕入先単価自動更新区分 = 0;
    std::string 写真フォルダ;
    std::string documentFolder; // ドキュメントフォルダ
    SharedFolders folders;
    std::int16_t 明細保存月数 = 0, 統計保存年数 = 0, 整理実施可能日自 = 0, 整理実施可能日至 = 0, 整理実施可能時刻 = 0;
    std::string 明細整理実行日, 統計整理実行日;
    std::int16_t 伝票番号管理区分 = 0; // 0: one set of counters for the company, else one for each office
    std::int16_t pinRequired = 0;      // 暗証番号有無, the office's where it isn't "000"; 1 asks for a PIN
    std::int16_t 更新実行区分 = 0;
    std::string 登録日付, 更新日付;

    OfficeValues office;
    std::string officeName;          // 名称 of the operating office
    std::string officeDisplayName;   // the same, read afresh for the title; kept, and read by nothing here
    std::string officePrivilegedPin; // plain; always the office's, "000" too
    std::int16_t officeCount = 0;    // offices other than "000"
    int linkedCount = 0;             // slots of linked in use
    std::array<LinkedBusiness, 10> linked;
};

inline CompanyValues company;

} // namespace kestrel
