#pragma once

#include "browser/world.h"
#include "common/link.h"

namespace orvane::standins {

// What UI Automation asks of the process about the trees of its windows. Elements go by their number:
// their place in Desktop::allElements(). HRESULTs are numbers. Whoever answers adds the "link" to an
// "element": the window through which the process is asked about it.
//   {"op":"root","window":ID}                   {"element":N} or {"hresult":H}
//   {"op":"focused"}                            {"element":N or null}
//   {"op":"find","element":N,"types":[…]}       {"elements":[…]} or {"hresult":H}; types null: any
//   {"op":"read","element":N,"fact":NAME}       {"value":…} or {"hresult":H}
//   {"op":"pattern","element":N,"pattern":ID}   {"available":bool} or {"hresult":H}
//   {"op":"invoke"|"select"|"setFocus"|"defaultAction","element":N}, {"op":"setValue","element":N,"value":TEXT}
//                                               {"hresult":H}
// Null: the request is none of these.
Json answerAutomation(World& world, const Json& request);

}  // namespace orvane::standins
