// The company that runs the suite: read once at start-up into the session, never refreshed.
#pragma once

namespace kestrel {

// Fills `company` from Mユーザ, then the linked businesses, the operating office and the count of offices. An operating
// office that has left M事業所 falls back to "000". True: the row of the company was read; the other steps run all the
// same.
bool loadCompanyProfile();

} // namespace kestrel
