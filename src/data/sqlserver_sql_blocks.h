#pragma once

#include <vector>

#include "data/access_rules.h"

namespace dialetto {

// Two statements have blocks for the other two servers only. What vanished with them is put back:
// the column "Numero" of the suspended sales, in the list and before a LIKE on it, and the condition that
// the average price looks gMesiPrezzoMedio months back.
void regolaBlocchiSvaniti(const std::vector<Token>& token, Modifiche& modifiche);

}  // namespace dialetto
