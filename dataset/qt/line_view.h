#pragma once

#include <QAbstractScrollArea>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/line_index.h"

namespace qor {

// The lines of a file of any size, to look at and to copy one by one. Only what is seen is read. A file is there at once; the rest
// of its lines is counted in the background.
class VistaDeLineas : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit VistaDeLineas(QWidget* padre = nullptr);
    ~VistaDeLineas() override;

    // Throws FalloDeEjecucion when the file can't be opened. The view is empty then.
    void Abrir(const std::filesystem::path& ruta);
    void Cerrar();

    std::size_t Lineas() const { return lineas_; }
    // Whether all lines are counted.
    void IrALinea(std::size_t linea);

    // The lines on the screen.
    const std::vector<std::string>& Visibles() const { return visibles_; }

signals:
    // The current line from 0, and the number of lines so far.
    void PosicionCambiada(qulonglong linea, qulonglong lineas);

protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* evento) override;

private:
    void Contar();
    void AjustarBarras();
    void LeerVisibles();
    std::size_t Primera() const;
    int LineasPorPagina() const;
    int AnchoDeNumeros() const;
    void Copiar();

    std::unique_ptr<IndiceDeLineas> indice_;
    std::jthread contador_;  // goes before the index that it works on
    QTimer reloj_;           // looks what the counting has found
    std::size_t lineas_ = 0;
    std::size_t actual_ = 0;
    std::size_t masAncha_ = 0;  // of the lines seen so far
    std::vector<std::string> visibles_;
};

}  // namespace qor
