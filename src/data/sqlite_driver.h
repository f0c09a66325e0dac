#pragma once

#include "data/connection_string.h"
#include "data/sqlite_connection.h"
#include "data/warm_driver.h"

// Connections to embedded archives; a warm one whose file has been replaced is closed and opened anew.
using SqliteDriver = DriverCaldo<SqliteConnection>;
