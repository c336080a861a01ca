#pragma once

#include <string_view>

namespace KTPrivate {
/// The currencies in everyday use at the end of 2022, between spaces.
///
/// A typed amount is in the first of them that can be read in it. With the list of the system, which
/// grows with every version of its data, the same text would be another amount elsewhere. Currencies
/// that came later (XCG, ZWG) are read and shown where they are a formatter's own.
inline constexpr std::string_view CommonCurrencies =
    "AED AFN ALL AMD ANG AOA ARS AUD AWG AZN BAM BBD BDT BGN BHD BIF BMD BND BOB BRL BSD BTN BWP "
    "BYN BZD CAD CDF CHF CLP CNY COP CRC CUC CUP CVE CZK DJF DKK DOP DZD EGP ERN ETB EUR FJD FKP "
    "GBP GEL GHS GIP GMD GNF GTQ GYD HKD HNL HRK HTG HUF IDR ILS INR IQD IRR ISK JMD JOD JPY KES "
    "KGS KHR KMF KPW KRW KWD KYD KZT LAK LBP LKR LRD LSL LYD MAD MDL MGA MKD MMK MNT MOP MRU MUR "
    "MVR MWK MXN MYR MZN NAD NGN NIO NOK NPR NZD OMR PAB PEN PGK PHP PKR PLN PYG QAR RON RSD RUB "
    "RWF SAR SBD SCR SDG SEK SGD SHP SLE SLL SOS SRD SSP STN SYP SZL THB TJS TMT TND TOP TRY TTD "
    "TWD TZS UAH UGX USD UYU UZS VEF VES VND VUV WST XAF XCD XOF XPF YER ZAR ZMW";
} // namespace KTPrivate
