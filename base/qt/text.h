#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace qor {

// Texts of the model as the forms take them, and back. Characters that windows-1252 lacks are dropped on the way back.
QString TextoQt(std::string_view texto);
std::string TextoDelModelo(const QString& texto);

// The same for texts of several lines: CR LF in the model, LF in a form.
QString LineasQt(std::string_view texto);
std::string LineasDelModelo(const QString& texto);

// A caption without the "&" of its letter, and a text as a caption, in which no "&" is the sign of a letter.
QString SinLetra(QString rotulo);
QString ComoRotulo(QString texto);
// A caption with a letter that is not among `usadas`, to which it is added: the first one of a word, else any; as it is where none
// is left.
QString ConLetraLibre(QString rotulo, QString& usadas);

// Names of files, in whatever characters the system has them.
QString NombreQt(const std::filesystem::path& ruta);
std::filesystem::path RutaDeQt(const QString& ruta);

}  // namespace qor
