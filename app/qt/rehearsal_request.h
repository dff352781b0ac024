#pragma once

#include <QWidget>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "base/view.h"
#include "practice/failures.h"

class QComboBox;
class QGridLayout;
class QLineEdit;
class QScrollArea;

namespace qor {

// An input file of the document, by the name of its parameter.
struct ArchivoPedido {
    std::string parametro;
    std::filesystem::path ruta;
};

// What a rehearsal is asked for: the input files, the folder of value lists, which records, which of them shall fail, the values
// of parameters, and the practice system.
class PanelDePedido : public QWidget {
    Q_OBJECT
public:
    PanelDePedido(const TextosIdioma& textos, Vista& vista, QWidget* padre);

    // One row for each file.
    void PonerArchivos(const std::vector<ArchivoPedido>& archivos);
    std::vector<ArchivoPedido> Archivos() const;
    // A file that was chosen elsewhere.
    void PonerArchivo(const std::string& parametro, const std::filesystem::path& ruta);

    // For another document: the first records, none that shall fail, no parameters.
    void Reiniciar();

    // Where the records come from no file: the tables they may come from, "NAME=FILE, NAME=FILE".
    void PonerTablas(const std::string& tablas);
    void PonerValores(const std::filesystem::path& carpeta);
    std::filesystem::path Valores() const;

    // What was typed; false, with the control that is wrong in the focus and a message, where it can't be read.
    struct Pedido {
        TramoDeRegistros tramo;
        FallosPorRegistro fallos;
        std::vector<std::pair<std::string, std::string>> parametros;
        std::vector<std::pair<std::string, std::string>> tablas;
    };
    bool Leer(Pedido& pedido);
    bool EnArchivoPropio() const;

    void EnfocarPrimero();

signals:
    void ArchivoElegido(const QString& parametro, const QString& ruta);

private:
    struct FilaDeArchivo {
        std::string parametro;
        QLineEdit* ruta = nullptr;
    };

    QWidget* CrearArchivos();
    QLayout* CrearEleccion();
    QLineEdit* NuevaRuta(int fila, const char* nombre, const QString& rotulo, const std::function<void(QLineEdit*)>& examinar);
    void Examinar(const std::string& parametro, QLineEdit* caja);
    void ExaminarValores(QLineEdit* caja);
    bool Rehusar(QWidget* control, int motivo, const std::string& pieza);

    const TextosIdioma& textos_;
    Vista& vista_;
    std::vector<FilaDeArchivo> filas_;
    QScrollArea* zona_ = nullptr;
    QLineEdit* tablas_ = nullptr;  // where there are no files
    QLineEdit* valores_ = nullptr;
    QComboBox* registros_ = nullptr;
    QLineEdit* fallos_ = nullptr;
    QLineEdit* parametros_ = nullptr;
    QComboBox* sistema_ = nullptr;
};

}  // namespace qor
