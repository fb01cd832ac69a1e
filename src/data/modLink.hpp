// How programs of the suite start one another: a caller leaves a request in プログラム連携情報 and starts this program
// with the same text on its command line; at the end an answering row tells the caller what was done.
#pragma once

#include <string_view>

namespace kestrel {

// commandLine: trimmed. earliest: "yyyymmdd hhnnss"; older requests are nobody's. A waiting request with that text is
// taken off the table, its caller and text go to rosterSession.linkCaller and linkStartText. Without one linkCaller is
// empty.
void receiveLinkMessage(std::string_view commandLine, std::string_view earliest);

// Writes the answer to the request taken, keeps the text as rosterSession.linkReplyText, and opens the local connection
// afresh.
void sendLinkAnswer(std::string_view text);

} // namespace kestrel
