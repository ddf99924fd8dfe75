#include "activation/tab_items.h"

namespace orvane {

TabItemSearch findTabItems(const UiaSession& session, const UiaElement& root) {
  TabItemSearch search;
  UiaCondition condition;
  search.result = session.controlTypeCondition(UIA_TabItemControlTypeId, condition);
  search.hasCondition = static_cast<bool>(condition);
  if (search.hasCondition) {
    search.result = root.findAll(condition, search.items);
  }
  return search;
}

}  // namespace orvane
