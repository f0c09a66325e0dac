#pragma once

#include <memory>

#include "archivio/new_archive.h"

// The database itself is made when it is missing and the account may.
std::unique_ptr<NuovoArchivio> nuovoDatabase(const NomeArchivio& nome, bool sovrascrivi);
