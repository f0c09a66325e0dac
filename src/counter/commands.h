#pragma once

class Conto;

// The commands of the screen, by their index; one that is disabled or out of 0 to 19 does nothing.
void cmdComando_Click(Conto& conto, int indice);
// The account and field buttons, by their index 0 to 13; three of them open searches.
constexpr int contoCliente = 5;
constexpr int contoProgressivo = 6;
constexpr int contoProdotto = 7;
constexpr int contoIva = 13;
void cmdConto_Click(Conto& conto, int indice);
