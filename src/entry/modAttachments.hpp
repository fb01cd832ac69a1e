// M付属書類: which documents and folders hang on an addressee. The table is shared by the suite, which explains its
// many key columns. The copies themselves are files of data/modAttachmentFiles.
#pragma once

#include "platform/database/record_set.hpp"

#include <string>
#include <string_view>

namespace kestrel {

inline constexpr std::string_view attachmentOwner = "連絡台帳入力"; // 情報名 of every row of this program

// A row, but for its number, writer and time. All but the first three may be left empty.
struct AttachmentRow {
    std::string 情報名, 情報識別ID;
    std::string 書類名; // the whole path as it was picked
    std::string タイトル = "";
    std::string 伝票番号ID = "", 伝票事業所コード = "", 伝票番号基準日付 = "", 伝票No = "", 伝票日付 = "";
    std::string 対応先コード = "", 得意先コード = "", 納品先コード = "", 仕入先コード = "", 銀行コード = "",
                科目コード = "", 社員コード = "";
    std::string 担当者コード = "", 部門コード = "", セクションコード = "", 商品コード = "", メーカコード = "";
    long long 対象金額 = 0;
};

// How a copy's name begins: the three parts of the row's key, joined with "_".
std::string attachmentKey(std::string_view name, std::string_view id, std::string_view number);

bool hasAttachments(std::string_view name, std::string_view id);
// Under the number behind the highest of that name and id, and then the copy of the document. Without the row no copy.
void insertAttachment(const AttachmentRow& row);
bool deleteAttachmentRow(std::string_view name, std::string_view id, std::string_view number);
std::string findAttachmentPath(std::string_view name, std::string_view id, std::string_view number); // 書類名, or empty

// Of the row that the record set stands on.
struct AttachmentCopy {
    std::string id, number; // of the row's key
    std::string name;       // the document's own
    std::string path;       // of its copy
};
AttachmentCopy attachmentCopyPath(const database::RecordSet& row);
struct AttachmentFacts {
    std::string size, date; // "2KB" or "フォルダ"; "yyyy/mm/dd"
    std::string foundName;  // empty, like the other two, when the copy is missing
};
AttachmentFacts describeAttachment(const AttachmentCopy& copy);

} // namespace kestrel
