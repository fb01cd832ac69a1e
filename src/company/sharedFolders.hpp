// The folders and files that the company and its offices both name.
#pragma once

#include "session/companyValues.hpp"
#include "values/columns.hpp"

namespace kestrel {

inline constexpr Column<SharedFolders> sharedFolderColumns[] = {
    {"総合振込ファイル", &SharedFolders::総合振込ファイル},
    {"基本読込フォルダ", &SharedFolders::基本読込フォルダ},
    {"帳票イメージフォルダ", &SharedFolders::帳票イメージフォルダ},
    {"その他読込ファイル", &SharedFolders::その他読込ファイル},
    {"本支店連携フォルダ", &SharedFolders::本支店連携フォルダ},
    {"テキスト出力フォルダ", &SharedFolders::テキスト出力フォルダ},
    {"BACKUPフォルダ", &SharedFolders::BACKUPフォルダ},
};

} // namespace kestrel
