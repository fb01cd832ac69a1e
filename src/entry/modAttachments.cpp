#include "entry/modAttachments.hpp"

#include "data/modAttachmentFiles.hpp"
#include "data/modFiles.hpp"
#include "data/modGateway.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/paths.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/writerStamp.hpp"

namespace kestrel {

namespace {

struct TextColumn {
    std::string_view name;
    std::string AttachmentRow::*value;
};
// In the order of the insert, SEQNo between the second and the third.
constexpr TextColumn textColumns[] = {
    {"情報名", &AttachmentRow::情報名},
    {"情報識別ID", &AttachmentRow::情報識別ID},
    {"書類名", &AttachmentRow::書類名},
    {"タイトル", &AttachmentRow::タイトル},
    {"伝票番号ID", &AttachmentRow::伝票番号ID},
    {"伝票事業所コード", &AttachmentRow::伝票事業所コード},
    {"伝票番号基準日付", &AttachmentRow::伝票番号基準日付},
    {"伝票No", &AttachmentRow::伝票No},
    {"伝票日付", &AttachmentRow::伝票日付},
    {"対応先コード", &AttachmentRow::対応先コード},
    {"得意先コード", &AttachmentRow::得意先コード},
    {"納品先コード", &AttachmentRow::納品先コード},
    {"仕入先コード", &AttachmentRow::仕入先コード},
    {"銀行コード", &AttachmentRow::銀行コード},
    {"科目コード", &AttachmentRow::科目コード},
    {"社員コード", &AttachmentRow::社員コード},
    {"担当者コード", &AttachmentRow::担当者コード},
    {"部門コード", &AttachmentRow::部門コード},
    {"セクションコード", &AttachmentRow::セクションコード},
    {"商品コード", &AttachmentRow::商品コード},
    {"メーカコード", &AttachmentRow::メーカコード},
};

std::string whereOwner(std::string_view name, std::string_view id) {
    return " WHERE 情報名 = '" + std::string(name) + "' AND 情報識別ID = '" + std::string(id) + "'";
}

std::string whereRow(std::string_view name, std::string_view id, std::string_view number) {
    return whereOwner(name, id) + " AND SEQNo = '" + std::string(number) + "'";
}

// Gaps stay; the numbers of deleted rows above the highest one come back.
std::string nextNumber(const AttachmentRow& row) {
    constexpr int width = 3;
    database::RecordSet highest;
    const bool found = openRecordset(
        highest, "SELECT SEQNo FROM M付属書類" + whereOwner(row.情報名, row.情報識別ID) + " ORDER BY SEQNo DESC",
        false);
    const long long last = found ? text::leadingNumber(highest.text("SEQNo", "")) : 0;
    highest.close();
    return text::zeroFilled(last + 1, width);
}

// Paths and titles go in as they stand: an apostrophe breaks the statement.
std::string insertStatement(const AttachmentRow& row, const std::string& number) {
    std::string names, values;
    const auto add = [&](std::string_view name, const std::string& value) {
        names.append(names.empty() ? "(" : ",").append(name);
        values.append(values.empty() ? "('" : ",'").append(value).append("'");
    };
    for (const TextColumn& column : textColumns) {
        add(column.name, row.*column.value);
        if (column.value == &AttachmentRow::情報識別ID) add("SEQNo", number);
    }
    names.append(",対象金額");
    values.append(",").append(std::to_string(row.対象金額));
    add("ユーザID", writerStamp());
    add("登録日付", platform::stampText(platform::now()));
    return "INSERT INTO M付属書類 " + names + ") VALUES " + values + ")";
}

// What stands behind the last separator; where there is none the cut drops the first character.
std::string nameOfCopy(const std::string& path) {
    const std::string_view name = nameInFolder(path);
    return name.size() < path.size() ? std::string(name) : text::slice(path, 1, path.size());
}

std::string withCommas(std::uint64_t number) {
    constexpr int group = 3;
    std::string digits = std::to_string(number);
    for (int at = static_cast<int>(digits.size()) - group; at > 0; at -= group)
        digits.insert(static_cast<std::size_t>(at), ",");
    return digits;
}

std::string sizeText(std::uint64_t bytes) {
    constexpr std::uint64_t kilobyte = 1024;
    return withCommas((bytes + kilobyte / 2) / kilobyte) + "KB";
}

std::string dayText(const platform::Moment& moment) {
    const std::string date = platform::dateText(moment);
    return date.substr(0, 4) + "/" + date.substr(4, 2) + "/" + date.substr(6, 2);
}

} // namespace

std::string attachmentKey(std::string_view name, std::string_view id, std::string_view number) {
    return std::string(name).append("_").append(id).append("_").append(number);
}

bool hasAttachments(std::string_view name, std::string_view id) {
    database::RecordSet rows;
    const bool found = openRecordset(rows, "SELECT SEQNo FROM M付属書類" + whereOwner(name, id), false);
    rows.close();
    return found;
}

void insertAttachment(const AttachmentRow& row) {
    const std::string number = nextNumber(row);
    if (!executeSql(insertStatement(row, number), false)) return;
    if (platform::lastSeparator(row.書類名) == std::string::npos) return;
    copyAttachment(row.書類名, attachmentKey(row.情報名, row.情報識別ID, number), row.タイトル);
}

bool deleteAttachmentRow(std::string_view name, std::string_view id, std::string_view number) {
    return executeSql("DELETE FROM M付属書類" + whereRow(name, id, number), false);
}

std::string findAttachmentPath(std::string_view name, std::string_view id, std::string_view number) {
    database::RecordSet row;
    std::string path;
    if (openRecordset(row, "SELECT  書類名 FROM M付属書類" + whereRow(name, id, number), false))
        path = row.text("書類名", "");
    row.close();
    return path;
}

AttachmentCopy attachmentCopyPath(const database::RecordSet& row) {
    const std::string owner = row.text("情報名", "");
    AttachmentCopy copy{row.text("情報識別ID", ""), row.text("SEQNo", ""), nameOfCopy(row.text("書類名", "")), ""};
    copy.path = attachmentPath(attachmentKey(owner, copy.id, copy.number), copy.name);
    return copy;
}

AttachmentFacts describeAttachment(const AttachmentCopy& copy) {
    const auto entry = platform::entryAt(copy.path);
    if (!entry) return {};
    std::string date = dayText(entry.value().modified);
    if (entry.value().folder) return {"フォルダ", std::move(date), "0"};
    return {sizeText(entry.value().size), std::move(date), copy.name};
}

} // namespace kestrel
