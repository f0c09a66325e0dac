#pragma once

// A window closes on a click that many make twice: the second one, on the same place, would press what stood
// below. Drops it.
void ignoraSecondoClic();
