#pragma once

struct Vendita;

// Weight and packages of a movement, for its transport data.

// PESO and COLLI of a product, from Prodotti; 0 when Null or there is no such product.
float getPesoProd(int idProdotto);
int getColliProd(int idProdotto);
// To the nearest whole package, ties to even, in 16 bits: beyond them RunTimeError 6.
int arrotondaColli(double colli);
// Those of the sale on the screen: its live rows, a kit by its head alone. Quantities keep their sign.
void getNewPesoColli(const Vendita& v, int& colli, float& peso);
// Writes PESOCONS and COLLICONS of the movement.
bool updatePesoColli(int idMovimento, float peso, int colli);
