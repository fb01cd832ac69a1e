#include "lists/listWindows.hpp"
#include "lists/partnerList.hpp"

namespace kestrel {

constinit const ListSpec wnd得意先一覧 = partnerList({.word = "得意先",
                                                      .controls = partner::controls,
                                                      .conditions = partner::codeAndStatus,
                                                      .takeMore = partner::limitToStaffOfForm});

} // namespace kestrel
