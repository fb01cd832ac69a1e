// The page of attachments: its list, its three buttons, and the double click that opens a document. Which addressee
// they belong to is read off the screen.
#include "data/modAttachmentFiles.hpp"
#include "data/modFiles.hpp"
#include "data/modGateway.hpp"
#include "entry/entryForm.hpp"
#include "entry/entrySteps.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modAttachments.hpp"
#include "entry/modRosterRecords.hpp"
#include "numbering/modNumbers.hpp"
#include "numbering/modOfficeSuite.hpp"
#include "platform/process.hpp"
#include "screen/message.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"

#include <stdexcept>

namespace kestrel {

namespace {

constexpr const char* documentFilter =
    "全てのファイル (*.*)|*.*|ワード (*.doc)|*.doc|EXCELL (*.xls)|*.xls|テキスト (*.txt)|*.txt|一太郎 (*.jws)|*.jws|"
    "JPEG ファイル (*.jpg)|*.jpg|GIFファイル (*.gif)|*.gif|メタファイル (*.wmf)|*.wmf|"
    "拡張メタファイル (*.emf)|*.emf|Bitmap ファイル (*.bmp)|*.bmp";
constexpr int hideReadOnlyBox = 4;
constexpr std::size_t numberWidth = 3;

std::string shownDate() {
    const Frm連絡台帳入力& form = entryForm();
    return form.名簿日付年.text + form.名簿日付月.text + form.名簿日付日.text;
}

std::string shownBaseDate() {
    return numberBaseDate(rosterRegister, shownDate());
}

std::string shownId(const std::string& baseDate) {
    return installation.sessionOffice + baseDate + entryForm().名簿No.text + entryForm().名簿宛先No.text;
}

AttachmentRow shownRow() {
    const Frm連絡台帳入力& form = entryForm();
    const std::string baseDate = shownBaseDate();
    return {.情報名 = std::string(attachmentOwner),
            .情報識別ID = shownId(baseDate),
            .書類名 = "",
            .伝票番号ID = std::string(rosterRegister),
            .伝票事業所コード = installation.sessionOffice,
            .伝票番号基準日付 = baseDate,
            .伝票No = form.名簿No.text,
            .伝票日付 = shownDate(),
            .担当者コード = form.担当者コード.text,
            .部門コード = form.部門コード.text,
            .セクションコード = form.セクションコード.text};
}

std::string homeFolder() {
    const std::string profile = platform::environment("USERPROFILE");
    return profile.empty() ? platform::environment("HOME") : profile;
}

// What has gone since it was picked has no title, like what was never picked.
std::string titleOf(const std::string& path) {
    try {
        return fileBaseName(path);
    } catch (const std::runtime_error&) {
        return "";
    }
}

void attach(AttachmentRow row, const std::string& path) {
    row.書類名 = path;
    row.タイトル = titleOf(path);
    if (!row.タイトル.empty()) insertAttachment(row);
}

// The id and number of a list row, out of its Key: "C", id, number.
struct PickedRow {
    std::string title, id, number;
};
std::optional<PickedRow> selectedRow() {
    const screen::Control& list = entryForm().List付属書類;
    if (list.selected < 0) return std::nullopt;
    const screen::ListRow& row = list.rows[static_cast<std::size_t>(list.selected)];
    const std::size_t length = text::length(row.key());
    const std::size_t idLength = length > numberWidth ? length - numberWidth - 1 : 0;
    return PickedRow{std::string(row.text()), text::slice(row.key(), 1, idLength),
                     text::slice(row.key(), 1 + idLength, numberWidth)};
}

std::string keyOf(const PickedRow& row) {
    return attachmentKey(attachmentOwner, row.id, row.number);
}

void addListRow(screen::Control& list, const database::RecordSet& row) {
    const AttachmentCopy copy = attachmentCopyPath(row);
    const AttachmentFacts facts = describeAttachment(copy);
    const std::string title = row.text("タイトル", ""), key = "C" + copy.id + copy.number;
    screen::addRow(list, {title, key, {facts.size, facts.date}, !facts.foundName.empty()});
}

void fillAttachmentList(const std::string& id) {
    screen::Control& list = entryForm().List付属書類;
    screen::clearRows(list); // the selection goes with them
    if (text::trim(entryForm().名簿宛先No.text).empty()) return;
    database::RecordSet rows;
    if (openRecordset(rows,
                      "SELECT  * FROM M付属書類 WHERE 情報名 = '" + std::string(attachmentOwner) +
                          "' AND 情報識別ID = '" + id + "' ORDER BY SEQNo",
                      false))
        for (; !rows.eof(); rows.moveNext()) addListRow(list, rows);
    rows.close();
}

// Only an addressee that exists can have something attached.
void updateAttachmentButtons(const std::string& id) {
    Frm連絡台帳入力& form = entryForm();
    const bool saved = !rosterSession.newEntry;
    screen::setVisible(form.btn_付属書類追加, saved);
    screen::setVisible(form.btn_フォルダ, saved);
    screen::setVisible(form.btn_付属書類削除, saved && hasAttachments(attachmentOwner, id));
}

} // namespace

void 付属書類listint() {
    screen::setColumns(entryForm().List付属書類, {{"書類名", 5450}, {"サイズ", 1050}, {"更新日付", 1400}});
    const std::string id = shownId(shownBaseDate());
    fillAttachmentList(id);
    updateAttachmentButtons(id);
}

void pressAddFile(screen::Control&) {
    const AttachmentRow row = shownRow();
    const auto picked = screen::pickFile(
        {.filter = documentFilter, .filterIndex = 0, .startFolder = homeFolder(), .flags = hideReadOnlyBox});
    if (picked) attach(row, *picked);
    付属書類listint();
}

void pressAddFolder(screen::Control&) {
    const AttachmentRow row = shownRow();
    const std::string start = homeFolder(), picked = browseForFolder("書類を選択して下さい", start);
    if (!picked.empty() && picked != start) attach(row, picked);
    付属書類listint();
}

void pressDeleteAttachment(screen::Control&) {
    const auto row = selectedRow();
    if (!row || !screen::question("付属書類から削除しますか？")) return;
    deleteAttachmentRow(attachmentOwner, row->id, row->number);
    deleteAttachment(row->title, keyOf(*row));
    付属書類listint();
}

void openSelectedAttachment(screen::Control&) {
    const auto row = selectedRow();
    if (row) openAttachment(findAttachmentPath(attachmentOwner, row->id, row->number), keyOf(*row));
}

} // namespace kestrel
