#pragma once

#include <QWidget>
#include <filesystem>

// The places of windows are kept in the file beside the settings that remembers windows: size and place of a window and of the
// splitters in it, by their names. An empty path keeps nothing.
namespace qor {

// False where nothing is known of the window.
bool RecuperarLugares(const std::filesystem::path& memoria, QWidget& ventana);
void RecordarLugares(const std::filesystem::path& memoria, const QWidget& ventana);

}  // namespace qor
