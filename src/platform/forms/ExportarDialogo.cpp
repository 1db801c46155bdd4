#include "platform/forms/ExportarDialogo.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/ExportarRejilla.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

bool ExportarConDialogo(QWidget* padre, const Rejilla& rejilla, Dialogo& dialogo,
                        const QString& carpeta) {
    QFileDialog elegir(padre, QStringLiteral("Exportar"), carpeta);
    elegir.setAcceptMode(QFileDialog::AcceptSave);
    elegir.setFileMode(QFileDialog::AnyFile);
    // The replacement question is ours, with No as its default.
    elegir.setOption(QFileDialog::DontConfirmOverwrite);
    elegir.setNameFilters({FiltroExcel, FiltroTexto});
    elegir.selectNameFilter(FiltroExcel);
    elegir.setDefaultSuffix(QStringLiteral("xlsx"));
    // The dialog keeps the filters without their leading blanks: they are told by position.
    auto esTexto = [&elegir](const QString& filtro) {
        return elegir.nameFilters().indexOf(filtro) == 1;
    };
    QObject::connect(&elegir, &QFileDialog::filterSelected, &elegir, [&](const QString& filtro) {
        elegir.setDefaultSuffix(esTexto(filtro) ? QStringLiteral("txt") : QStringLiteral("xlsx"));
    });
    if (elegir.exec() != QDialog::Accepted)
        return false;
    const QString ruta = elegir.selectedFiles().value(0);
    if (ruta.isEmpty())
        return false;
    // The filter chosen decides the format, whatever the name's extension.
    const FormatoExportacion formato =
        esTexto(elegir.selectedNameFilter()) ? FormatoExportacion::Texto : FormatoExportacion::Xlsx;
    if (QFileInfo::exists(ruta) && !dialogo.Preguntar(PreguntaSustituir))
        return false;
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        ExportarRejilla(rejilla, ruta, formato);
        QApplication::restoreOverrideCursor();
        return true;
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        dialogo.Informar(e.mensaje());
        return false;
    }
}
