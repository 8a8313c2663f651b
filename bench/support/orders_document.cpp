#include "bench/support/orders_document.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <random>
#include <span>
#include <string_view>

namespace KestBench {
namespace {

using Words = std::span<std::string_view const>;

// clang-format off
constexpr std::string_view kWords[] = {
    "delivery", "please", "leave", "package", "behind", "the", "blue", "door", "call", "before",
    "arrival", "fragile", "handle", "with", "care", "invoice", "separate", "gift", "wrap", "urgent",
    "customer", "asked", "for", "replacement", "colour", "red", "size", "large", "see", "attached",
    "list", "and", "confirm", "by", "mail", "thanks"};
constexpr std::string_view kNonAscii[] = {
    "Größe", "café", "naïve", "München", "€ 20", "日本", "Škoda", "señor", "😀", "Łódź"};
constexpr std::string_view kEntities[] = {
    "R&amp;D", "&lt;tag&gt;", "&quot;quoted&quot;", "O&apos;Neil", "&#8364;", "&#x20AC; 5"};
constexpr std::string_view kFirstNames[] = {
    "Anna", "Bernd", "Clara", "David", "Eva", "Frank", "Gita", "Hans", "Inès", "Jürgen", "Karl",
    "Léa", "Mia", "Noël", "Otto", "Paul"};
constexpr std::string_view kLastNames[] = {
    "Schmidt", "Müller", "Dupont", "Smith", "Jones", "García", "Novák", "Rossi", "Svensson",
    "Olsen", "Weber", "Kovač"};
constexpr std::string_view kProducts[] = {
    "Hammer", "Drill", "Saw", "Wrench", "Lamp", "Cable", "Screwdriver", "Ladder", "Paint", "Brush",
    "Glue", "Tape", "Bolt", "Nut"};
constexpr std::string_view kForeignCurrencies[] = {"USD", "GBP", "CHF"};
constexpr std::string_view kHalves[] = {"0", "5"};
// clang-format on

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<orders xmlns=\"urn:example:orders\">\n";
constexpr std::string_view kTail = "</orders>\n";

// Fills the state of the Mersenne Twister as the reference implementation's init_by_array does
// for a key of one word, which std::seed_seq does not.
class CKeySeed {
 public:
  using result_type = std::uint32_t;

  explicit CKeySeed(std::uint32_t key) : m_key(key) {}

  template <typename Iterator>
  void generate(Iterator first, Iterator last) const {
    std::array<std::uint32_t, kSize> state = KeyFreeState();
    std::size_t i = 1;
    auto const mix = [&](std::uint32_t factor, std::uint32_t addend) {
      state[i] = (state[i] ^ ((state[i - 1] ^ (state[i - 1] >> 30)) * factor)) + addend;
      if (++i == kSize) {
        state[0] = state[kSize - 1];
        i = 1;
      }
    };
    for (std::size_t n = 0; n < kSize; ++n) mix(1664525, m_key);
    for (std::size_t n = 1; n < kSize; ++n) mix(1566083941, 0U - static_cast<std::uint32_t>(i));
    state[0] = 0x80000000U;
    for (std::size_t n = 0; first != last; ++first, ++n) *first = state[n];
  }

 private:
  static constexpr std::size_t kSize = std::mt19937::state_size;

  static std::array<std::uint32_t, kSize> KeyFreeState() {
    std::array<std::uint32_t, kSize> state{19650218};
    for (std::uint32_t i = 1; i < kSize; ++i)
      state[i] = 1812433253U * (state[i - 1] ^ (state[i - 1] >> 30)) + i;
    return state;
  }

  std::uint32_t m_key;
};

// Draws as a fixed algorithm over a fixed engine, since the distributions of the standard library
// are free to differ between its implementations.
class CDice {
 public:
  explicit CDice(std::uint32_t key) {
    CKeySeed seed(key);
    m_engine.seed(seed);
  }

  // Both ends included.
  unsigned Between(unsigned low, unsigned high) { return low + Below(high - low + 1); }

  std::string_view OneOf(Words words) { return words[Below(static_cast<unsigned>(words.size()))]; }

  // In [0, 1), with 53 random bits.
  double Fraction() {
    auto const high = static_cast<double>(Next() >> 5);
    auto const low = static_cast<double>(Next() >> 6);
    return (high * 67108864.0 + low) / 9007199254740992.0;
  }

 private:
  std::uint32_t Next() { return static_cast<std::uint32_t>(m_engine()); }

  unsigned Below(unsigned bound) {
    auto const shift = 32U - static_cast<unsigned>(std::bit_width(bound));
    unsigned drawn = Next() >> shift;
    while (drawn >= bound) drawn = Next() >> shift;
    return drawn;
  }

  std::mt19937 m_engine;
};

std::string Padded(unsigned value, int places) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*u", places, value);
  return text;
}

std::string Money(unsigned cents) {
  return std::to_string(cents / 100) + "." + Padded(cents % 100, 2);
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

// How many items and words of note an order has; 0 leaves it to the dice.
struct OrderSize {
  unsigned items = 0;
  unsigned noteWords = 0;
};

// Appends orders to a text. The order of the draws is part of the format.
class COrderMaker {
 public:
  COrderMaker(std::uint32_t key, std::string& text) : m_dice(key), m_text(text) {}

  void AddOrder(unsigned number, OrderSize size = {}) {
    auto const currency = m_dice.Fraction() < 0.8 ? "EUR" : m_dice.OneOf(kForeignCurrencies);
    Add("  <order id=\"", std::to_string(100000 + number), "\" currency=\"", currency, "\">\n");
    Add("    <customer>", m_dice.OneOf(kFirstNames));
    Add(" ", m_dice.OneOf(kLastNames), "</customer>\n");
    AddDate();
    std::string items;
    unsigned const total = MakeItems(size.items ? size.items : m_dice.Between(1, 8), items);
    Add("    <total>", Money(total), "</total>\n    <note>");
    AddNote(size.noteWords ? size.noteWords : m_dice.Between(5, 40));
    Add("</note>\n", items, "  </order>\n");
  }

 private:
  template <typename... Texts>
  void Add(Texts const&... texts) {
    (m_text.append(texts), ...);
  }

  void AddDate() {
    Add("    <date>20", Padded(m_dice.Between(10, 24), 2));
    Add("-", Padded(m_dice.Between(1, 12), 2));
    Add("-", Padded(m_dice.Between(1, 28), 2));
    Add("T", Padded(m_dice.Between(0, 23), 2));
    Add(":", Padded(m_dice.Between(0, 59), 2));
    Add(":", Padded(m_dice.Between(0, 59), 2), "Z</date>\n");
  }

  // Returns what the items cost together, in cents.
  unsigned MakeItems(unsigned count, std::string& items) {
    unsigned total = 0;
    for (; count > 0; --count) {
      unsigned const price = m_dice.Between(99, 99999);
      unsigned const quantity = m_dice.Between(1, 20);
      total += price * quantity;
      std::string const discount = MakeDiscount();
      items.append("    <item sku=\"SKU-").append(Padded(m_dice.Between(0, 9999999), 7));
      items.append("\" qty=\"").append(std::to_string(quantity)).append("\">\n      <name>");
      items.append(m_dice.OneOf(kProducts)).append(" ");
      items.append(LowerAscii(m_dice.OneOf(kProducts))).append(" no. ");
      items.append(std::to_string(m_dice.Between(1, 900))).append("</name>\n      <price>");
      items.append(Money(price)).append("</price>\n      <quantity>");
      items.append(std::to_string(quantity)).append("</quantity>\n");
      items.append(discount).append("    </item>\n");
    }
    return total;
  }

  // Three items in ten have one.
  std::string MakeDiscount() {
    if (m_dice.Fraction() >= 0.3) return {};
    std::string discount = "      <discount>" + std::to_string(m_dice.Between(1, 40)) + ".";
    return discount.append(m_dice.OneOf(kHalves)).append("</discount>\n");
  }

  void AddNote(unsigned words) {
    for (unsigned i = 0; i < words; ++i) {
      double const kind = m_dice.Fraction();
      Add(i == 0 ? "" : " ");
      Add(m_dice.OneOf(kind < 0.04 ? Words(kEntities) : kind < 0.09 ? Words(kNonAscii) : kWords));
    }
  }

  CDice m_dice;
  std::string& m_text;
};

}  // namespace

std::string MakeOrders(std::size_t bytes) {
  std::string text(kHead);
  text.reserve(bytes + 8192);
  COrderMaker maker(20240229, text);
  for (unsigned number = 0; text.size() - kHead.size() < bytes; ++number) maker.AddOrder(number);
  return text.append(kTail);
}

std::string MakeSmallOrder() {
  std::string text(kHead);
  COrderMaker(7, text).AddOrder(1, {.items = 21, .noteWords = 60});
  return text.append(kTail);
}

}  // namespace KestBench
