#pragma once
// One picture per action across every window, with its tooltip: the same action looks the same
// in the board, the posting screens, the list windows and the print preview, and no picture
// stands for two actions.
//
//     QAction* a = barra->addAction(QStringLiteral("Imprimir"), ...);
//     PonerIcono(a, Accion::Imprimir);   // picture, tooltip, and the property "accion"

#include <QIcon>
#include <QList>
#include <QString>

class QAction;

enum class Accion {
    Salir,
    Cerrar,
    Cuentas,
    Imagenes,
    Asientos,
    Diario,
    SumasSaldos,
    Mayor,
    Renumerar,
    Vencimientos,
    Movimientos,
    IngresosGastos,
    PorMeses,
    Avisos,
    Calculadora,
    Bancos,
    Ayuda,
    Imprimir,
    Copiar,
    Exportar,
    VerAsiento,
    EliminarAsiento,
    QuitarApunte,
    SeleccionarApunte,
    Periodico,
    Buscar,
    PrimeraPagina,
    PaginaAnterior,
    PaginaSiguiente,
    UltimaPagina,
    Calendario,
    Nuevo,
};

QIcon IconoDe(Accion a);
QString AvisoDe(Accion a); // the tooltip
// Every action of the table, in its order.
QList<Accion> AccionesConIcono();
// Gives the action its picture and tooltip, and records which one it is ("accion" property).
void PonerIcono(QAction* accion, Accion a);
