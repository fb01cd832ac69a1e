#include "lists/listWindows.hpp"
#include "lists/organisationList.hpp"

namespace kestrel {

constinit const ListSpec wnd部門一覧 = organisationList("部門");

} // namespace kestrel
