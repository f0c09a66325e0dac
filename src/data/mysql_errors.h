#pragma once

#include "data/server_driver.h"

// The class of an error of MariaDB or MySQL by its native code, with a plain Italian text where the reader
// can do something about it; the server's own text follows it. An integrity error keeps the server's text.
ErroreServer erroreMySql(int codice, const QString& testoServer);
