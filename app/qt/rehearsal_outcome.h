#pragma once

#include <QTabWidget>
#include <optional>
#include <vector>

#include "app/rehearsal_lines.h"
#include "base/messages.h"

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace qor {

class CajaDeLectura;

// What came of a rehearsal, on tabs: the report's list, the failures, the totals, notices, and the report at the line of a short
// dump where there is one.
class PestanasDeResultado : public QTabWidget {
    Q_OBJECT
public:
    PestanasDeResultado(const TextosIdioma& textos, QWidget* padre);

    // Shows the tab that matters most. Null for no result.
    void Poner(const ResultadoDeEnsayo* resultado, const std::vector<LineaDeTotal>& totales);

signals:
    // A condition or a pair was activated, or what led to a short dump.
    void Activada(const Lugar& celda);
    // A failure was activated: its place among those of the result.
    void FalloActivado(std::size_t fallo);
    // A failure was chosen.
    void RegistroElegido(std::size_t registro);

public:
    // The failure that has the focus; nothing for none.
    std::optional<std::size_t> FalloConFoco() const;

private:
    QWidget* CrearVolcado();
    void PonerLista(const ResultadoDeEnsayo& resultado);
    void PonerFallos(const ResultadoDeEnsayo& resultado);
    void PonerTotales(const ResultadoDeEnsayo& resultado, const std::vector<LineaDeTotal>& totales);
    void PonerAvisos(const ResultadoDeEnsayo& resultado);
    void PonerVolcado(const ResultadoDeEnsayo& resultado);
    void Titular();
    void Activar(const QTreeWidgetItem* linea);
    QTreeWidget* NuevoArbol(const char* nombre, int accesible);

    const TextosIdioma& textos_;
    CajaDeLectura* lista_;
    QTreeWidget* fallos_;
    QTreeWidget* totales_;
    CajaDeLectura* avisos_;
    QWidget* volcado_ = nullptr;
    QLabel* textoDeVolcado_ = nullptr;
    QPushButton* irACelda_ = nullptr;
    CajaDeLectura* reporte_ = nullptr;
    Lugar celdaDelVolcado_;
    int cuantosFallos_ = 0;
    int cuantosAvisos_ = 0;
};

}  // namespace qor
