#pragma once
// The lists of periodic and predesigned entries: their grids (what the list windows show and
// export, and the command line prints) and their printed lists on the report frame, with the
// company name at the head and the page number at the foot of each page.
//
// Usage:
//     Rejilla r = RejillaPeriodicos();
//     { Conexion c = AbrirBavar(s); LlenarPeriodicos(c, r); }
//     ImprimirLibro(ventana, DibujoListaPeriodicos(r, empresa, opciones), {...});

#include "platform/Impresora.h"
#include "platform/Rejilla.h"
#include "reports/OpcionesLibro.h"

class Conexion;

inline const QString TituloListaPeriodicos = QStringLiteral("Listado de Asientos Periódicos");
inline const QString TituloListaPredisenados = QStringLiteral("Listado de Asientos Tipo");

// "Fecha Ini.", "Fecha Prox.", "Nombre Asiento" and the rhythm, one row per entry.
enum ColPeriodicos { ColPerFechaIni, ColPerFechaProx, ColPerNombre, ColPerPeriodicidad };
Rejilla RejillaPeriodicos();
void LlenarPeriodicos(Conexion& bavar, Rejilla& r);

// "Código" (three digits) and "Nombre Asiento Tipo", one row per template.
enum ColPredisenados { ColPreCodigo, ColPreNombre };
Rejilla RejillaPredisenados();
void LlenarPredisenados(Conexion& bavar, Rejilla& r);

// The printed lists: "Fecha Ini.", "Fecha Próx.", "Nombre Asiento Periódico"; and "Código",
// "Nombre Asiento Tipo". The grids are read when drawing and must outlive the drawing.
DibujoLibro DibujoListaPeriodicos(const Rejilla& r, const QString& empresa,
                                  const OpcionesLibro& op);
DibujoLibro DibujoListaPredisenados(const Rejilla& r, const QString& empresa,
                                    const OpcionesLibro& op);

// The page end of these lists: they carry no sums, so each page ends with its number alone.
constexpr double FinPaginaListas = 1600, PiePaginaListas = 1200;
