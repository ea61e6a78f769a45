// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "jx/platform/linux/JXLocaleMoney.h"

namespace jx {
namespace {

// Territory and currency, sorted: "FREUR" means that France uses EUR. A territory without permanent
// inhabitants has the currency of the state that administers it; Antarctica has none.
constexpr char kTerritories[][6] = {
    "ADEUR", "AEAED", "AFAFN", "AGXCD", "AIXCD", "ALALL", "AMAMD", "AOAOA", "ARARS", "ASUSD",
    "ATEUR", "AUAUD", "AWAWG", "AXEUR", "AZAZN", "BABAM", "BBBBD", "BDBDT", "BEEUR", "BFXOF",
    "BGEUR", "BHBHD", "BIBIF", "BJXOF", "BLEUR", "BMBMD", "BNBND", "BOBOB", "BQUSD", "BRBRL",
    "BSBSD", "BTBTN", "BVNOK", "BWBWP", "BYBYN", "BZBZD", "CACAD", "CCAUD", "CDCDF", "CFXAF",
    "CGXAF", "CHCHF", "CIXOF", "CKNZD", "CLCLP", "CMXAF", "CNCNY", "COCOP", "CRCRC", "CUCUP",
    "CVCVE", "CWXCG", "CXAUD", "CYEUR", "CZCZK", "DEEUR", "DJDJF", "DKDKK", "DMXCD", "DODOP",
    "DZDZD", "ECUSD", "EEEUR", "EGEGP", "EHMAD", "ERERN", "ESEUR", "ETETB", "FIEUR", "FJFJD",
    "FKFKP", "FMUSD", "FODKK", "FREUR", "GAXAF", "GBGBP", "GDXCD", "GEGEL", "GFEUR", "GGGBP",
    "GHGHS", "GIGIP", "GLDKK", "GMGMD", "GNGNF", "GPEUR", "GQXAF", "GREUR", "GSGBP", "GTGTQ",
    "GUUSD", "GWXOF", "GYGYD", "HKHKD", "HMAUD", "HNHNL", "HREUR", "HTHTG", "HUHUF", "IDIDR",
    "IEEUR", "ILILS", "IMGBP", "ININR", "IOUSD", "IQIQD", "IRIRR", "ISISK", "ITEUR", "JEGBP",
    "JMJMD", "JOJOD", "JPJPY", "KEKES", "KGKGS", "KHKHR", "KIAUD", "KMKMF", "KNXCD", "KPKPW",
    "KRKRW", "KWKWD", "KYKYD", "KZKZT", "LALAK", "LBLBP", "LCXCD", "LICHF", "LKLKR", "LRLRD",
    "LSLSL", "LTEUR", "LUEUR", "LVEUR", "LYLYD", "MAMAD", "MCEUR", "MDMDL", "MEEUR", "MFEUR",
    "MGMGA", "MHUSD", "MKMKD", "MLXOF", "MMMMK", "MNMNT", "MOMOP", "MPUSD", "MQEUR", "MRMRU",
    "MSXCD", "MTEUR", "MUMUR", "MVMVR", "MWMWK", "MXMXN", "MYMYR", "MZMZN", "NANAD", "NCXPF",
    "NEXOF", "NFAUD", "NGNGN", "NINIO", "NLEUR", "NONOK", "NPNPR", "NRAUD", "NUNZD", "NZNZD",
    "OMOMR", "PAPAB", "PEPEN", "PFXPF", "PGPGK", "PHPHP", "PKPKR", "PLPLN", "PMEUR", "PNNZD",
    "PRUSD", "PSILS", "PTEUR", "PWUSD", "PYPYG", "QAQAR", "REEUR", "RORON", "RSRSD", "RURUB",
    "RWRWF", "SASAR", "SBSBD", "SCSCR", "SDSDG", "SESEK", "SGSGD", "SHSHP", "SIEUR", "SJNOK",
    "SKEUR", "SLSLE", "SMEUR", "SNXOF", "SOSOS", "SRSRD", "SSSSP", "STSTN", "SVUSD", "SXXCG",
    "SYSYP", "SZSZL", "TCUSD", "TDXAF", "TFEUR", "TGXOF", "THTHB", "TJTJS", "TKNZD", "TLUSD",
    "TMTMT", "TNTND", "TOTOP", "TRTRY", "TTTTD", "TVAUD", "TWTWD", "TZTZS", "UAUAH", "UGUGX",
    "UMUSD", "USUSD", "UYUYU", "UZUZS", "VAEUR", "VCXCD", "VEVES", "VGUSD", "VIUSD", "VNVND",
    "VUVUV", "WFXPF", "WSWST", "XKEUR", "YEYER", "YTEUR", "ZAZAR", "ZMZMW", "ZWZWG"};

// Currency and the symbol that is used in its territory, sorted by currency.
struct CurrencySymbol {
  char code[4];
  char symbol[16];
};

constexpr CurrencySymbol kSymbols[] = {
    {"AED", "د.إ."}, {"AFN", "؋"},    {"ALL", "Lekë"},  {"AMD", "֏"},    {"AOA", "Kz"},
    {"ARS", "$"},    {"AUD", "$"},    {"AWG", "Afl."},  {"AZN", "₼"},  {"BAM", "KM"},
    {"BBD", "$"},    {"BDT", "৳"},    {"BHD", "د.ب."},  {"BIF", "FBu"},  {"BMD", "$"},
    {"BND", "$"},    {"BOB", "Bs"},   {"BRL", "R$"},    {"BSD", "$"},    {"BTN", "Nu."},
    {"BWP", "P"},    {"BYN", "Br"},   {"BZD", "$"},     {"CAD", "$"},    {"CDF", "FC"},
    {"CHF", "CHF"},  {"CLP", "$"},    {"CNY", "¥"},     {"COP", "$"},    {"CRC", "₡"},
    {"CUP", "$"},    {"CVE", "$"},    {"CZK", "Kč"},    {"DJF", "Fdj"},  {"DKK", "kr."},
    {"DOP", "RD$"},  {"DZD", "د.ج."}, {"EGP", "ج.م."},  {"ERN", "Nfk"},  {"ETB", "ብር"},
    {"EUR", "€"},    {"FJD", "$"},    {"FKP", "£"},     {"GBP", "£"},    {"GEL", "₾"},
    {"GHS", "GH₵"},  {"GIP", "£"},    {"GMD", "D"},     {"GNF", "FG"},   {"GTQ", "Q"},
    {"GYD", "$"},    {"HKD", "HK$"},  {"HNL", "L"},     {"HTG", "G"},    {"HUF", "Ft"},
    {"IDR", "Rp"},   {"ILS", "₪"},    {"INR", "₹"},     {"IQD", "د.ع."}, {"IRR", "ریال"},
    {"ISK", "kr."},  {"JMD", "$"},    {"JOD", "د.أ."},  {"JPY", "¥"},    {"KES", "Ksh"},
    {"KGS", "сом"},  {"KHR", "៛"},    {"KMF", "CF"},    {"KPW", "₩"},    {"KRW", "₩"},
    {"KWD", "د.ك."}, {"KYD", "$"},    {"KZT", "₸"},     {"LAK", "₭"},    {"LBP", "ل.ل."},
    {"LKR", "රු."},   {"LRD", "$"},    {"LSL", "M"},     {"LYD", "د.ل."}, {"MAD", "د.م."},
    {"MDL", "L"},    {"MGA", "Ar"},   {"MKD", "ден."},  {"MMK", "K"},    {"MNT", "₮"},
    {"MOP", "MOP$"}, {"MRU", "UM"},   {"MUR", "Rs"},    {"MVR", "Rf"},   {"MWK", "MK"},
    {"MXN", "$"},    {"MYR", "RM"},   {"MZN", "MTn"},   {"NAD", "$"},    {"NGN", "₦"},
    {"NIO", "C$"},   {"NOK", "kr"},   {"NPR", "नेरू"},    {"NZD", "$"},    {"OMR", "ر.ع."},
    {"PAB", "B/."},  {"PEN", "S/"},   {"PGK", "K"},     {"PHP", "₱"},    {"PKR", "Rs"},
    {"PLN", "zł"},   {"PYG", "Gs."},  {"QAR", "ر.ق."},  {"RON", "lei"},  {"RSD", "дин."},
    {"RUB", "₽"},  {"RWF", "RF"},   {"SAR", "ر.س."},  {"SBD", "$"},    {"SCR", "SR"},
    {"SDG", "ج.س."}, {"SEK", "kr"},   {"SGD", "$"},     {"SHP", "£"},    {"SLE", "Le"},
    {"SOS", "S"},    {"SRD", "$"},    {"SSP", "£"},     {"STN", "Db"},   {"SYP", "ل.س."},
    {"SZL", "E"},    {"THB", "฿"},    {"TJS", "сом."},  {"TMT", "m."},   {"TND", "د.ت."},
    {"TOP", "T$"},   {"TRY", "₺"},    {"TTD", "$"},     {"TWD", "$"},    {"TZS", "TSh"},
    {"UAH", "₴"},    {"UGX", "USh"},  {"USD", "$"},     {"UYU", "$"},    {"UZS", "soʻm"},
    {"VES", "Bs.S"}, {"VND", "₫"},    {"VUV", "VT"},    {"WST", "WS$"},  {"XAF", "FCFA"},
    {"XCD", "$"},    {"XCG", "Cg."},  {"XOF", "F CFA"}, {"XPF", "F"},    {"YER", "ر.ي."},
    {"ZAR", "R"},    {"ZMW", "K"},    {"ZWG", "ZiG"}};

// The binary search requires sorted tables.
template <typename Entry, std::size_t kCount, typename Key>
constexpr bool isSorted(const Entry (&entries)[kCount], Key key) {
  for (std::size_t i = 1; i < kCount; ++i) {
    if (!(key(entries[i - 1]) < key(entries[i]))) return false;
  }
  return true;
}

constexpr std::string_view territoryOf(const char (&entry)[6]) { return {entry, 2}; }
constexpr std::string_view codeOf(const CurrencySymbol& entry) { return {entry.code, 3}; }

static_assert(isSorted(kTerritories, territoryOf));
static_assert(isSorted(kSymbols, codeOf));

JXString symbolOf(std::string_view code) {
  const auto* found = std::lower_bound(
      std::begin(kSymbols), std::end(kSymbols), code,
      [](const CurrencySymbol& entry, std::string_view wanted) { return entry.code < wanted; });
  if (found == std::end(kSymbols) || found->code != code) return JXString(code);
  return found->symbol;
}

}  // namespace

JXMoney territoryMoney(std::string_view territory) {
  if (territory.size() != 2) return {};
  const auto* found = std::lower_bound(std::begin(kTerritories), std::end(kTerritories), territory,
                                       [](const char* entry, std::string_view wanted) {
                                         return std::string_view(entry, 2) < wanted;
                                       });
  if (found == std::end(kTerritories) || std::string_view(*found, 2) != territory) return {};
  const std::string_view code(*found + 2, 3);
  return {JXString(code), symbolOf(code)};
}

}  // namespace jx
