#include "entry/modPrinting.hpp"

#include "company/modSignIn.hpp"
#include "platform/paths.hpp"
#include "platform/process.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"

namespace kestrel {

constexpr std::string_view reportProgram = "連絡台帳帳票";

std::string reportParameters(char flag) {
    const std::string rosterNo = text::padRight(rosterSession.名簿No, 8);
    const std::string addresseeNo = text::padRight(rosterSession.名簿宛先No, 6);
    const std::string staffCode = text::padRight(rosterSession.担当者コード, 5);
    return installation.sessionOffice + flag + rosterNo + rosterNo + addresseeNo + addresseeNo + staffCode + staffCode +
           "   999" + "230";
}

static void startReport(char flag) {
    const std::string file = platform::joinPath(installation.binFolder, std::string(reportProgram) + ".exe");
    if (!platform::startProgram(file, reportParameters(flag))) screen::message("帳票プログラムが有りません");
}

void printCard() {
    startReport('0');
}
void previewCard() {
    startReport('1');
}

static bool permitted(int rightKind) {
    return authorizeOperation(menuGroup, reportProgram, rightKind) == -1;
}

void pressPrint(screen::Control&) {
    if (permitted(4) && screen::question("印刷しますか?")) printCard();
    screen::setFocus(*rosterSession.lastLeftField);
}

void pressPreview(screen::Control&) {
    if (permitted(5) && screen::question("プレビュしますか?")) previewCard();
}

} // namespace kestrel
