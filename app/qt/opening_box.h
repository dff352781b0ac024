#pragma once

#include <functional>

class QDialog;

namespace qor {

// Shows the opening box, which goes to this function, in front of its window, which keeps the keyboard. Any key or click closes it;
// then `despues` runs once, and behind it what was pressed is done in the window, so that nothing typed is lost. Space, Esc, Enter
// and a click on the box only close it, and so does what was pressed when `despues` asks the user something.
void MostrarAlEmpezar(QDialog* caja, std::function<void()> despues);

}  // namespace qor
