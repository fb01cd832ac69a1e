// The one record of the addressee on the screen, with the screen's flags and references. Values are texts; an absent
// value is the empty text, never a null: a read leaves the old value in place when a column is null. Fields of the
// screen never hold the truth: a handler takes a field's text into this record, works on it, and rewrites all fields
// from it.
#pragma once

#include "platform/database/record_set.hpp"
#include "screen/window.hpp"

#include <cstdint>
#include <string>

namespace kestrel {

struct RosterSession {
    std::string 名簿日付年, 名簿日付月, 名簿日付日; // 4, 2, 2 digits
    std::string 名簿日付;                           // "yyyymmdd"
    std::string 番号基準日付;                       // number base date, 8 characters
    std::string 名簿No;                             // 8 digits
    std::string 名簿名称;
    std::string 発送日付年, 発送日付月, 発送日付日, 発送日付;
    std::string 担当者コード, 担当者名, 部門コード, 部門名, セクションコード, セクション名;
    std::string 名簿宛先No; // 6 digits
    std::string 宛先名称A, 宛先名称B, 宛先名称C;
    std::string 宛先郵便番号;
    std::string 宛先住所A, 宛先住所B, 宛先住所C;
    std::string 宛先電話, 宛先FAX, 宛先HOMEPAGE, 宛先EMAIL;
    std::int16_t 法人個人区分 = 0, 発送区分 = 0;
    std::string 宛先摘要; // line ends are CR LF
    std::string 得意先登録日付, 得意先コード, 納品先登録日付, 納品先コード;
    std::string 仕入先登録日付, 仕入先コード, メーカ登録日付, メーカコード;
    std::string 宛先ID, 承認者コード, 承認日付, 承認区分, 登録日付,
        更新日付;                   // carried from the row read to the row written
    std::string previousRosterDate; // emptied by clears; nothing ever fills it

    bool refreshing = false; // showEntry is running: every handler of the entry form does nothing
    bool newEntry = true;
    bool dirty = false;
    bool linkStarted = false;
    std::int16_t printChoice = 0; // 0 save and print, 1 save only, 2 no
    std::string operationKind;    // "0" insert, "1" change, "2" delete; read by nothing
    std::int16_t writeResult = 0; // 1 inserted, 3 insert failed, 7 deleted, 6 delete failed
    std::string writeMessage;

    std::string lookupCondition;
    screen::Control* lookupTarget = nullptr;
    screen::Control* lookupNextControl = nullptr;
    screen::Window* lookupParent = nullptr;      // the list window that opened the one shown; none: the entry form did
    std::int16_t lookupNested = 0;               // 1 while it did; one value, not a stack
    screen::Control* lastLeftField = nullptr;    // buttons that refuse or finish give the focus back to it
    screen::Control* lastEnteredField = nullptr; // the field or caption that last took the focus
    screen::Control* firstField = nullptr;       // 宛先名称A, the home position of the focus
    screen::Window* currentForm = nullptr;       // the entry form, made before anything else

    std::string linkCaller, linkStartText, linkReplyText;

    database::RecordSet rosterRecords, addresseeRecords, postalRecords;
    database::RecordSet customerRecords, deliveryRecords, supplierRecords, makerRecords;
};

inline RosterSession rosterSession;

} // namespace kestrel
