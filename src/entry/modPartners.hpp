// An addressee becomes a business partner: a row of M得意先, M納品先, M仕入先 or Mメーカ, with a free code and the
// table's own defaults for what an addressee doesn't know. The four are one mechanism; what tells them apart is data.
#pragma once

#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"

#include <span>
#include <string>
#include <string_view>

namespace kestrel {

// What a column of a new partner holds.
struct PartnerValue {
    enum class Kind { fixed, bare, code, shortName, asHeld, quoted, searchTelephone, term, today, writer, now };
    Kind kind = Kind::fixed;
    std::string_view text = "";                  // fixed, and bare: a number without quotes
    std::string RosterSession::*held = nullptr;  // asHeld, quoted
    std::int16_t CompanyValues::*term = nullptr; // of payment, as a number
    int width = 0;                               // of so many digits
};

struct PartnerColumn {
    std::string_view name;
    PartnerValue value;
};

enum class Searched { firstRow, allRows }; // whether the search for a free code asks for one row or for all

struct Partner {
    std::string_view button, codeField;
    std::string RosterSession::*code;
    std::string RosterSession::*madeOn; // the session's date of the registration
    std::string_view table;
    database::RecordSet RosterSession::*slot;
    std::string_view question;
    std::span<const PartnerColumn> columns; // in the order of the insert
    std::string_view between;               // the values
    Searched searched = Searched::firstRow;
};

std::span<const Partner> partners();

// The session's code becomes a free one: the one after the highest below "999999"; a gap below isn't filled. It becomes
// empty when there is none to take.
void assignPartnerCode(const Partner& partner);
// Nothing without a code. The session's date and dirty are set when the row could be inserted; the addressee itself is
// not saved.
void registerPartner(const Partner& partner);
// The session takes the code when there is such a partner; false, and nothing taken, when there isn't.
bool linkPartner(const Partner& partner, std::string_view code);

} // namespace kestrel
