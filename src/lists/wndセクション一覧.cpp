#include "lists/listWindows.hpp"
#include "lists/organisationList.hpp"

namespace kestrel {

constinit const ListSpec wndセクション一覧 = organisationList("セクション");

} // namespace kestrel
