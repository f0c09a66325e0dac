#pragma once

class Conto;

// How a command was given: by its key, or by a mouse or a finger on its button.
enum class Pressione { Tasto, Pulsante };
// The commands of the screen, by their index; one that is disabled or out of 0 to 19 does nothing. The
// deletion of a sale takes no key without Shift.
void cmdComando_Click(Conto& conto, int indice, Pressione pressione = Pressione::Pulsante);
// The account and field buttons, by their index 0 to 13; three of them open searches.
constexpr int contoCliente = 5;
constexpr int contoProgressivo = 6;
constexpr int contoProdotto = 7;
constexpr int contoListino = 9;
constexpr int contoSconti = 11;
constexpr int contoPrezzo = 12;
constexpr int contoIva = 13;
void cmdConto_Click(Conto& conto, int indice);
// The day's cash, for which the desk must know its cash account.
void lblDescPagamento_DblClick(Conto& conto);
