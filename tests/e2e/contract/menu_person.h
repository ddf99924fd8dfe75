#pragma once

namespace orvane::contract {

// What a person does with the next menu that opens, by keys: takes the nth entry, from 1. Other
// menus are dismissed. Acts on a thread of its own from the first call on.
void expectMenus();
void chooseInNextMenuByKeys(int entry);

}  // namespace orvane::contract
