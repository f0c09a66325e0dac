#pragma once

#include "data/sqlserver_connection.h"
#include "data/warm_driver.h"

// Connections to SQL Server.
using SqlServerDriver = DriverCaldo<SqlServerConnection>;
