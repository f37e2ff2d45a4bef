#pragma once

#include <cstdint>

#include "src/context/controls/form.h"
#include "src/context/data/tvn_var_dll.h"

namespace tarvoni {

// Who is paid: a person chosen from the suppliers, shown by the short name and, where there is a box, the number.
class Payee {
 public:
  explicit Payee(const TvnVar_Dll& context, TextBox& name, TextBox* number = nullptr);
  Payee(const Payee&) = delete;
  Payee& operator=(const Payee&) = delete;

  std::int32_t Id() const { return id_; }  // PERSONAL.ID_PERSONAL; 0 for nobody
  void Show(std::int32_t id);
  void Clear() { Show(0); }
  // Lets the user choose. False if he cancels, which changes nothing.
  bool Pick();

 private:
  const TvnVar_Dll& context_;
  TextBox& name_;
  TextBox* number_;
  std::int32_t id_ = 0;
};

}  // namespace tarvoni
