#include "lists/modNames.hpp"

#include "data/modGateway.hpp"
#include "text/characters.hpp"

namespace kestrel {

static std::string nameIn(const std::string& table, const char* column, const std::string& code) {
    database::RecordSet records;
    std::string name;
    if (openRecordset(records, std::string("SELECT ") + column + " FROM " + table + " WHERE コード = '" + code + "'",
                      false))
        name = records.text(column, "");
    records.close();
    return name;
}

std::string staffName(const std::string& code) {
    return nameIn("M担当者", "氏名", code);
}

std::string staffNameIfAny(const std::string& code) {
    return text::trim(code).empty() ? "" : staffName(code);
}

std::string departmentName(const std::string& code) {
    return nameIn("M部門", "名称", code);
}

std::string sectionName(const std::string& code) {
    return nameIn("Mセクション", "名称", code);
}

} // namespace kestrel
