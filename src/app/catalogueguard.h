#pragma once

struct Session;

// The guard of every task command: says so, and answers false, when no catalogue is open.
bool CatalogueIsOpen(const Session &session);
