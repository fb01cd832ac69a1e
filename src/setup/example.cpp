#include "setup/example.hpp"

#include "setup/demonstration.hpp"
#include "setup/main_place.hpp"
#include "setup/store.hpp"

namespace kestrel::setup {

namespace {

// Rosters are counted anew every year: the latest base date is that of the year the installation was made in.
std::string selectBaseDate() {
    return std::string("SELECT 番号基準日付 FROM T名簿明細 WHERE 事業所コード = '") + exampleOffice +
           "' AND 名簿No = '" + exampleRoster + "' AND 名簿宛先No = '" + exampleAddressee +
           "' ORDER BY 番号基準日付 DESC";
}

} // namespace

Result<std::string> exampleCommandLine(std::string_view folder) {
    auto main = openMainStore(std::string(folder));
    if (!main) return main.failure();
    const auto rows = readRows(main.value(), selectBaseDate());
    if (!rows) return rows.failure();
    if (rows.value().empty())
        return platform::Failure{0, std::string(folder) + " holds no example: it has no demonstration data"};
    return exampleOffice + rows.value().front().get("番号基準日付").value_or("") + exampleRoster + exampleAddressee;
}

} // namespace kestrel::setup
