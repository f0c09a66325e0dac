#pragma once

class Montaggio;
class QWidget;

// The panels of a counter screen, made from top to bottom; each binds the fields that it shows.

// Accounts, desk, operator, and what state the sale is in.
QWidget* barraConti(const Montaggio& m, QWidget* padre);
// Date, numbers, customer, balance and credit limit.
QWidget* pannelloTestata(const Montaggio& m, QWidget* padre);
// The row being entered.
QWidget* pannelloRiga(const Montaggio& m, QWidget* padre);
// The total to pay, in figures for two metres, with payment and last sale.
QWidget* pannelloDisplay(const Montaggio& m, QWidget* padre);
// Product and totals, or in their place the keys for a finger.
QWidget* pannelloLaterale(const Montaggio& m, QWidget* padre);
// What is known of the product in the row editor; `tasti` stands in its heading.
QWidget* pannelloProdotto(const Montaggio& m, QWidget* tasti, QWidget* padre);
// Pieces, rows and sums of the sale.
QWidget* pannelloTotali(const Montaggio& m, QWidget* padre);
// The twenty commands.
QWidget* barraComandi(const Montaggio& m, QWidget* padre);
