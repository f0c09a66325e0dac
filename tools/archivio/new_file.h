#pragma once

#include <memory>

#include <QString>

#include "archivio/new_archive.h"

std::unique_ptr<NuovoArchivio> nuovoFile(const QString& percorso, bool sovrascrivi);
