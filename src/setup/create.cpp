#include "setup/create.hpp"

#include "setup/main_database.hpp"
#include "setup/server_target.hpp"

namespace kestrel::setup {

Status create(const CreateRequest& request, std::string_view program, std::ostream& words) {
    if (request.mainText.empty()) return createInstallation(request.folder, request.what, request.day, program);
    auto target = openTarget(request.kind, request.mainText);
    if (!target) return target.failure();
    Status status = createInstallation(request.folder, request.what, request.day, program, &target.value());
    if (status) {
        tellOf(target.value(), words);
    } else {
        undoTarget(target.value());
    }
    return status;
}

} // namespace kestrel::setup
