#pragma once

#include "data/mysql_connection.h"
#include "data/warm_driver.h"

// Connections to MariaDB and MySQL servers.
using MySqlDriver = DriverCaldo<MySqlConnection>;
