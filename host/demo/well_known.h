#pragma once

#include <string_view>

// Ids and numbers of codes that several parts name.
namespace tarvoni::demo {

// LOHNARTEN.NUMBER
inline constexpr int kTimeWage = 1010;
inline constexpr int kMotorHours = 1020;
inline constexpr int kToolMoney = 1030;
inline constexpr int kEstPiecework = 1110;
inline constexpr int kOtherPiecework = 1210;
inline constexpr int kOvertime = 1310;
inline constexpr int kDirtAllowance = 1410;
inline constexpr int kPieceBonus = 1430;
inline constexpr int kTravelKilometres = 1510;
inline constexpr int kHoliday = 2010;
inline constexpr int kPublicHoliday = 2020;
inline constexpr int kSickness = 2030;
inline constexpr int kExtraWorkShare = 2040;
inline constexpr int kSeniority = 2050;

// WARENEINHEIT.EINHEIT_ID
enum Unit : int {
  kCubicMetres = 1,
  kStackedMetres,
  kHectares,
  kPieces,
  kMetres,
  kWorkHours,
  kKilograms,
  kLitres,
  kKilometres,
  kSquareMetres,
  kFlatRate,
  kNoUnit,
};

// RELTABLE.RELTABLE_ID
inline constexpr int kServiceList = 1;
inline constexpr int kGangList = 2;
inline constexpr int kDistrictList = 3;
inline constexpr int kOfficeList = 4;
inline constexpr int kFirstOffice = 41;  // RELTABLE.ID

// T_PA_KATEGORIE.ID
inline constexpr int kOwnWorkCategory = 1;
inline constexpr int kContractorCategory = 2;
inline constexpr int kCentralCategory = 3;

// KOSTENART.NUMBER
inline constexpr int kWages = 4000;
inline constexpr int kMachinePurchase = 4050;
inline constexpr int kPlants = 4200;
inline constexpr int kFenceMaterial = 4210;
inline constexpr int kBrowsingProtection = 4220;
inline constexpr int kRoadMaterial = 4230;
inline constexpr int kFuel = 4300;
inline constexpr int kLubricants = 4310;
inline constexpr int kSpareParts = 4320;
inline constexpr int kOwnWorkshop = 4340;
inline constexpr int kContractors = 4400;
inline constexpr int kForeignRepairs = 4420;
inline constexpr int kInsurance = 4500;
inline constexpr int kVehicleTax = 4510;
inline constexpr int kMachineDepreciation = 4600;
inline constexpr int kSmallMaterial = 4800;
inline constexpr int kOtherCosts = 4900;
inline constexpr int kTimberRevenue = 8000;
inline constexpr int kPulpwoodRevenue = 8010;
inline constexpr int kFirewoodRevenue = 8020;
inline constexpr int kHuntingRevenue = 8100;
inline constexpr int kHuntingLease = 8110;
inline constexpr int kSideRevenue = 8200;
inline constexpr int kPlantRevenue = 8300;

// PRODUKT.NUMBER
inline constexpr int kHarvest = 10;
inline constexpr int kSilviculture = 20;
inline constexpr int kMachineOperation = 80;
inline constexpr int kAdministrationProduct = 90;

// LEISTUNGSART.NUMBER
inline constexpr int kWorkshopWork = 8010;
inline constexpr int kMachineRunning = 8020;
inline constexpr int kAbsence = 9030;

}  // namespace tarvoni::demo
