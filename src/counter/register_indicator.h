#pragma once

class InterfacciaRegCassa;
struct Vendita;

// The lamp and the words that tell the state of the register's link, on a desk that has a register.
void mostraStatoRegCassa(Vendita& v, const InterfacciaRegCassa& collegamento);

// Opens the link's monitor.
void lblRegCassa_Click();
