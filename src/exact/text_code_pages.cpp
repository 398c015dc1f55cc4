#include "exact/text_code_pages.h"

#include <string_view>

namespace quillon::exact {
namespace {

// The characters from 128 on; "?" for codes that have none.
constexpr std::u16string_view kCentralEuropean =
    u"€?‚?„…†‡?‰Š‹ŚŤŽŹ?‘’“”•–—?™š›śťžź\u00A0ˇ˘Ł¤Ą¦§¨©Ş«¬\u00AD®Ż°±˛ł´µ"
    u"¶·¸ąş»Ľ˝ľżŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙";
constexpr std::u16string_view kCyrillic =
    u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏђ‘’“”•–—?™љ›њќћџ\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї°±Ііґµ"
    u"¶·ё№є»јЅѕїАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя";
constexpr std::u16string_view kWesternEuropean =
    u"€?‚ƒ„…†‡ˆ‰Š‹Œ?Ž??‘’“”•–—˜™š›œ?žŸ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ"
    u"¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";
constexpr std::u16string_view kGreek =
    u"€?‚ƒ„…†‡?‰?‹?????‘’“”•–—?™?›????\u00A0΅Ά£¤¥¦§¨©?«¬\u00AD®―°±²³΄µ"
    u"¶·ΈΉΊ»Ό½ΎΏΐΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡ?ΣΤΥΦΧΨΩΪΫάέήίΰαβγδεζηθικλμνξοπρςστυφχψωϊϋόύώ?";
constexpr std::u16string_view kTurkish =
    u"€?‚ƒ„…†‡ˆ‰Š‹Œ????‘’“”•–—˜™š›œ??Ÿ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ"
    u"¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏĞÑÒÓÔÕÖ×ØÙÚÛÜİŞßàáâãäåæçèéêëìíîïğñòóôõö÷øùúûüışÿ";
constexpr std::u16string_view kBaltic =
    u"€?‚?„…†‡?‰?‹?¨ˇ¸?‘’“”•–—?™?›?¯˛?\u00A0?¢£¤?¦§Ø©Ŗ«¬\u00AD®Æ°±²³´µ"
    u"¶·ø¹ŗ»¼½¾æĄĮĀĆÄÅĘĒČÉŹĖĢĶĪĻŠŃŅÓŌÕÖ×ŲŁŚŪÜŻŽßąįāćäåęēčéźėģķīļšńņóōõö÷ųłśūüżž˙";

constexpr std::size_t kUpperHalf = 128;
static_assert(kCentralEuropean.size() == kUpperHalf && kCyrillic.size() == kUpperHalf &&
              kWesternEuropean.size() == kUpperHalf && kGreek.size() == kUpperHalf &&
              kTurkish.size() == kUpperHalf && kBaltic.size() == kUpperHalf);

std::u16string_view charactersOf(unsigned page) {
  switch (page) {
    case 1250:
      return kCentralEuropean;
    case 1251:
      return kCyrillic;
    case 1252:
      return kWesternEuropean;
    case 1253:
      return kGreek;
    case 1254:
      return kTurkish;
    case 1257:
      return kBaltic;
    default:
      return {};
  }
}

}  // namespace

bool isTwoBytePage(unsigned page) {
  return page == kJapanesePage || page == 936 || page == 949 || page == 950 || page == 1361;
}

char32_t characterOf(unsigned page, unsigned code) {
  const std::u16string_view characters = charactersOf(page);
  if (code < kUpperHalf || code - kUpperHalf >= characters.size()) return 0;
  const char16_t found = characters[code - kUpperHalf];
  return found == u'?' ? 0 : found;
}

}  // namespace quillon::exact
