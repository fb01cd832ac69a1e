// Two journals: プログラム稼動履歴 on the local database, a line for each thing that happened in one run (the program's
// only error log), and 使用状況 on the main database, what each computer and user started and ended last.
#pragma once

#include <string_view>

namespace kestrel {

void writeRunStart(); // "開始 " and the command line
void writeRunEnd();   // "終了", then writeUsageEnd when that could be written
void writeQueryHistory(std::string_view sql);
void writeErrorHistory(std::string_view text);
void cleanUsageRecords(); // rows that ended more than a month ago
void writeUsageStart();
void writeUsageEnd();

} // namespace kestrel
