// Attachments. The list of an addressee with many: built by the program, against the same statements by the engine's
// own interface and one look at the disk for each row. A large file: attached whole, against cp of the same file, by
// the clock, since most of it is not this process.
#include "data/modAttachmentFiles.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/modAttachments.hpp"
#include "platform/clock.hpp"
#include "session/modStart.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"
#include "text/numbers.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sys/stat.h>

using namespace kestrel;

namespace {

constexpr const char* addressee = "0012025033100000012000003";
constexpr int attachments = 900, rounds = 41, copies = 9;
constexpr std::size_t megabytes = 200;
constexpr double listLimit = 1.5, copyLimit = 1.3;

[[noreturn]] void standStill(const std::string& why) {
    std::fprintf(stderr, "the attachments stand still: %s\n", why.c_str());
    std::exit(2);
}

std::string numberOf(int attachment) {
    return text::zeroFilled(attachment, 3);
}

std::string copyOf(const std::string& number) {
    return attachmentPath(attachmentKey(attachmentOwner, addressee, number), "見積書.xls");
}

void fill(bench::RawDatabase& database) {
    for (int attachment = 1; attachment <= attachments; ++attachment) {
        const std::string number = numberOf(attachment);
        database.run("INSERT INTO M付属書類 (情報名, 情報識別ID, SEQNo, 書類名, タイトル) VALUES ('連絡台帳入力', '" +
                     std::string(addressee) + "', '" + number + "', '/home/見積書.xls', '見積書')");
        std::ofstream(copyOf(number)) << number;
    }
}

// What the list needs from below: its statements, every row with all its columns, one look at each copy.
void readRaw(bench::RawDatabase& database, const std::vector<bench::Sent>& statements) {
    for (const bench::Sent& sent : statements)
        database.eachRow(sent.text, [](const std::vector<std::string>& row) {
            struct stat about {};
            if (row.size() > 3 && row[0] == attachmentOwner && stat(copyOf(row[2]).c_str(), &about) != 0)
                standStill("a copy is missing");
        });
}

int measureList(const bench::Installation& place) {
    bench::RawDatabase database(place.mainFile());
    fill(database);
    const std::vector<bench::Sent> statements = bench::sentBy(付属書類listint);
    const auto ours = [] { return bench::spentOn(付属書類listint); };
    const auto theirs = [&] { return bench::spentOn([&] { readRaw(database, statements); }); };
    return bench::tell("list of 900 attachments", bench::compare(rounds, 1, ours, theirs), listLimit);
}

template <class Work> double clocked(Work work) {
    const double begin = platform::secondsRunning();
    work();
    return (platform::secondsRunning() - begin) * 1e6;
}

std::string largeFile(const bench::Installation& place) {
    const std::string path = (place.root / "大きい.bin").string();
    std::ofstream file(path, std::ios::binary);
    std::string block(1 << 20, '\0');
    for (std::size_t i = 0; i < megabytes; ++i) {
        for (std::size_t at = 0; at < block.size(); at += 4096) block[at] = static_cast<char>(std::rand());
        file << block;
    }
    if (!file.flush()) standStill("the large file can't be written");
    return path;
}

int measureCopy(const bench::Installation& place) {
    const std::string source = largeFile(place), other = (place.root / "cp.bin").string();
    const std::string command = "cp '" + source + "' '" + other + "'";
    const auto ours = [&] {
        const double spent = clocked([&] { insertAttachment({"連絡台帳入力", "写し", source, "大きい"}); });
        deleteAttachmentRow("連絡台帳入力", "写し", "001");
        if (std::remove(attachmentPath("連絡台帳入力_写し_001", "大きい.bin").c_str()) != 0) standStill("no copy");
        return spent;
    };
    const auto theirs = [&] {
        const double spent = clocked([&] {
            if (std::system(command.c_str()) != 0) standStill("cp failed");
        });
        std::remove(other.c_str());
        return spent;
    };
    return bench::tell("attaching a file of 200 MB, by the clock", bench::compare(copies, 1, ours, theirs), copyLimit);
}

} // namespace

int main() {
    const bench::Installation place(setup::What::full, bench::Where::memory);
    startProgram(addressee);
    return measureList(place) + measureCopy(place) > 0 ? 1 : 0;
}
