#pragma once

#include <cstdint>
#include <optional>

namespace tarvoni {

// Asked of the vouchers (F_Belege_New), answered like the contracts of contracts.h.
class VoucherDocument {
 public:
  virtual ~VoucherDocument() = default;
  // LAGER.ID of the stores document that the open Screen's current voucher belongs to; none without a Screen, a voucher
  // or a document.
  virtual std::optional<std::int32_t> OfCurrentVoucher() = 0;
};

}  // namespace tarvoni
