#pragma once

#include <QStringList>

// "Enero" … "Diciembre", for month lists, strips and headings.
const QStringList& NombresMeses();
