#include "entry/entryBindings.hpp"

#include "entry/entrySteps.hpp"
#include "entry/modLookups.hpp"
#include "entry/modNavigation.hpp"
#include "entry/modPrinting.hpp"
#include "entry/modSaving.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

namespace {

using enum screen::Event;

// The fields' own writing sets off no step.
template <void (*step)(screen::Control&)> void on(const screen::Occurrence& occurrence) {
    if (!rosterSession.refreshing) step(occurrence.control);
}

template <void (*step)(screen::Control&)> void onCtrl(const screen::Occurrence& occurrence) {
    if (occurrence.key == screen::Key::Ctrl) on<step>(occurrence);
}

// clang-format off: one line a control
constexpr screen::Binding table[] = {
    {"名簿日付年", gotFocus, on<enterField>},
    {"名簿日付年", lostFocus, on<leaveField>},
    {"名簿日付月", gotFocus, on<enterField>},
    {"名簿日付月", lostFocus, on<leaveField>},
    {"名簿日付日", gotFocus, on<enterField>},
    {"名簿日付日", lostFocus, on<leaveField>},
    {"名簿No", gotFocus, on<enterField>},
    {"名簿No", lostFocus, on<leaveField>},
    {"名簿No", keyDown, onCtrl<openLookup>},
    {"名簿No", doubleClick, on<openLookupByDoubleClick>},
    {"名簿名称", gotFocus, on<enterField>},
    {"担当者コード", gotFocus, on<enterField>},
    {"担当者名", gotFocus, on<enterField>},
    {"部門コード", gotFocus, on<enterField>},
    {"部門名", gotFocus, on<enterField>},
    {"セクションコード", gotFocus, on<enterField>},
    {"セクション名", gotFocus, on<enterField>},
    {"名簿宛先No", gotFocus, on<enterField>},
    {"名簿宛先No", lostFocus, on<leaveField>},
    {"名簿宛先No", keyDown, onCtrl<openLookup>},
    {"名簿宛先No", doubleClick, on<openLookupByDoubleClick>},
    {"ヘッド終了", gotFocus, on<passHeadEnd>},

    {"宛先名称A", gotFocus, on<enterField>},
    {"宛先名称A", change, on<checkLength>},
    {"宛先名称A", lostFocus, on<leaveField>},
    {"宛先名称B", gotFocus, on<enterField>},
    {"宛先名称B", change, on<checkLength>},
    {"宛先名称B", lostFocus, on<leaveField>},
    {"宛先名称C", gotFocus, on<enterField>},
    {"宛先名称C", change, on<checkLength>},
    {"宛先名称C", lostFocus, on<leaveField>},
    {"宛先郵便番号", gotFocus, on<enterField>},
    {"宛先郵便番号", lostFocus, on<leaveField>},
    {"宛先郵便番号", keyDown, onCtrl<openLookup>},
    {"宛先郵便番号", doubleClick, on<openLookupByDoubleClick>},
    {"宛先住所A", gotFocus, on<enterField>},
    {"宛先住所A", change, on<checkLength>},
    {"宛先住所A", lostFocus, on<leaveField>},
    {"宛先住所B", gotFocus, on<enterField>},
    {"宛先住所B", change, on<checkLength>},
    {"宛先住所B", lostFocus, on<leaveField>},
    {"宛先住所C", gotFocus, on<enterField>},
    {"宛先住所C", change, on<checkLength>},
    {"宛先住所C", lostFocus, on<leaveField>},
    {"宛先電話", gotFocus, on<enterField>},
    {"宛先電話", lostFocus, on<leaveField>},
    {"宛先FAX", gotFocus, on<enterField>},
    {"宛先FAX", lostFocus, on<leaveField>},
    {"法人個人区分", gotFocus, on<enterField>},
    {"法人個人区分", change, on<changeClass>},
    {"法人個人区分", lostFocus, on<leaveField>},
    {"法人個人区分名称", gotFocus, on<enterField>},
    {"法人個人区分名称", change, on<pickClass>},
    {"法人個人区分名称", lostFocus, on<leaveField>},
    {"発送区分", gotFocus, on<enterField>},
    {"発送区分", change, on<changeClass>},
    {"発送区分", lostFocus, on<leaveField>},
    {"発送区分名称", gotFocus, on<enterField>},
    {"発送区分名称", change, on<pickClass>},
    {"発送区分名称", lostFocus, on<leaveField>},
    {"宛先HOMEPAGE", gotFocus, on<enterField>},
    {"宛先HOMEPAGE", change, on<checkLength>},
    {"宛先HOMEPAGE", lostFocus, on<leaveField>},
    {"宛先EMAIL", gotFocus, on<enterField>},
    {"宛先EMAIL", change, on<checkLength>},
    {"宛先EMAIL", lostFocus, on<leaveField>},
    {"得意先コード", gotFocus, on<enterField>},
    {"得意先コード", lostFocus, on<leaveField>},
    {"得意先コード", keyDown, onCtrl<openLookup>},
    {"得意先コード", doubleClick, on<openLookupByDoubleClick>},
    {"納品先コード", gotFocus, on<enterField>},
    {"納品先コード", lostFocus, on<leaveField>},
    {"納品先コード", keyDown, onCtrl<openLookup>},
    {"納品先コード", doubleClick, on<openLookupByDoubleClick>},
    {"仕入先コード", gotFocus, on<enterField>},
    {"仕入先コード", lostFocus, on<leaveField>},
    {"仕入先コード", keyDown, onCtrl<openLookup>},
    {"仕入先コード", doubleClick, on<openLookupByDoubleClick>},
    {"メーカコード", gotFocus, on<enterField>},
    {"メーカコード", lostFocus, on<leaveField>},
    {"メーカコード", keyDown, onCtrl<openLookup>},
    {"メーカコード", doubleClick, on<openLookupByDoubleClick>},
    {"テイル終了", gotFocus, on<passTailEnd>},
    {"宛先摘要", gotFocus, on<enterField>},
    {"宛先摘要", lostFocus, on<leaveField>},

    {"itm_ttl_名簿日付", click, on<pressCaption>},
    {"itm_ttl_名簿名称", click, on<pressCaption>},
    {"itm_ttl_宛先名称", click, on<pressCaption>},
    {"itm_ttl_宛先住所", click, on<pressCaption>},
    {"itm_ttl_宛先電話", click, on<pressCaption>},
    {"itm_ttl_宛先FAX", click, on<pressCaption>},
    {"itm_ttl_法人個人区分", click, on<pressCaption>},
    {"itm_ttl_発送区分", click, on<pressCaption>},
    {"bak_dtla", click, on<pressCaption>},
    {"prg_ttl", click, on<returnFocus>},

    {"btn_名簿No", click, on<openLookup>},
    {"btn_担当者コード", click, on<openLookup>},
    {"btn_部門コード", click, on<openLookup>},
    {"btn_セクションコード", click, on<openLookup>},
    {"btn_名簿宛先No", click, on<openLookup>},
    {"btn_前No", click, on<pressStep>},
    {"btn_次No", click, on<pressStep>},
    {"btn_前明細No", click, on<pressStep>},
    {"btn_次明細No", click, on<pressStep>},

    {"btn_得意先登録", click, on<pressPartner>},
    {"btn_納品先登録", click, on<pressPartner>},
    {"btn_仕入先登録", click, on<pressPartner>},
    {"btn_メーカ登録", click, on<pressPartner>},
    {"btn_付属書類追加", click, on<pressAddFile>},
    {"btn_フォルダ", click, on<pressAddFolder>},
    {"btn_付属書類削除", click, on<pressDeleteAttachment>},
    {"List付属書類", doubleClick, on<openSelectedAttachment>},
    {"btn_HOMEPAGE", click, on<pressHomepage>},
    {"btn_EMAIL", click, on<pressMail>},
    {"manualpanel", click, on<pressManual>},

    {"btn_登録", click, on<pressSave>},
    {"btn_画面クリア", click, on<pressClear>},
    {"btn_削除", click, on<pressDelete>},
    {"btn_印刷", click, on<pressPrint>},
    {"btn_プレビュ", click, on<pressPreview>},
    {"btn_終了", click, on<pressExit>},
};
// clang-format on

} // namespace

std::span<const screen::Binding> entryBindings() {
    return table;
}

} // namespace kestrel
