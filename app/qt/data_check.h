#pragma once

#include <QObject>
#include <memory>

#include "input/preview_check.h"
#include "input/preview_findings.h"
#include "input/qt/data_findings_pane.h"

namespace qor {

// The check of the files that the preview shows: it runs behind the window, and its pane lists what was found so far.
class RevisionDeDatos : public QObject {
    Q_OBJECT
public:
    RevisionDeDatos(const TextosIdioma& textos, QWidget* padre);
    ~RevisionDeDatos() override;

    PanelDeHallazgosDeDatos* Panel() const { return panel_; }
    const HallazgosVistos& Hallazgos() const { return hallazgos_; }

    // Checks from the beginning.
    void Empezar(RevisionEnFondo::Pedido pedido);
    // What was found is no longer true; nothing is checked.
    void Quitar();
    // Takes what was found since the last look.
    void Mirar();
    // The finding that is next to a line, one step on or back, round the end; -1 for none. Where the one that is selected stands in
    // that line it goes on from there.
    int Vecino(int archivo, std::uint64_t linea, int paso) const;

signals:
    void HallazgosCambiados();

private:
    const TextosIdioma& textos_;
    HallazgosVistos hallazgos_;
    std::unique_ptr<RevisionEnFondo> revision_;
    PanelDeHallazgosDeDatos::Estado estado_;
    PanelDeHallazgosDeDatos* panel_;
};

}  // namespace qor
