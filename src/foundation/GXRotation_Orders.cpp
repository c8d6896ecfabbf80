// The 24 orders by name: for each of them a factory, a setter and a getter in degrees and in
// radians, and the text, all from one table.

#include <KTRCL_Geometry/foundation/GXRotation.h>

#include <KTRCL_DataTypes/GXString.h>

#include <array>

// The axes in the order of the angles, s for fixed axes, r for moved ones; the order number.
#define KTRCL_ROTATION_ORDERS(ROW) \
  ROW(XYZs, 0)                     \
  ROW(XYXs, 1)                     \
  ROW(XZYs, 2)                     \
  ROW(XZXs, 3)                     \
  ROW(YZXs, 4)                     \
  ROW(YZYs, 5)                     \
  ROW(YXZs, 6)                     \
  ROW(YXYs, 7)                     \
  ROW(ZXYs, 8)                     \
  ROW(ZXZs, 9)                     \
  ROW(ZYXs, 10)                    \
  ROW(ZYZs, 11)                    \
  ROW(ZYXr, 12)                    \
  ROW(XYXr, 13)                    \
  ROW(YZXr, 14)                    \
  ROW(XZXr, 15)                    \
  ROW(XZYr, 16)                    \
  ROW(YZYr, 17)                    \
  ROW(ZXYr, 18)                    \
  ROW(YXYr, 19)                    \
  ROW(YXZr, 20)                    \
  ROW(ZXZr, 21)                    \
  ROW(XYZr, 22)                    \
  ROW(ZYZr, 23)

namespace {

struct Order {
  const char* text;
  int number;
};

#define KTRCL_ROTATION_ORDER_ROW(ORD, NUMBER) Order{#ORD, NUMBER},
constexpr std::array<Order, 24> kOrders = {{KTRCL_ROTATION_ORDERS(KTRCL_ROTATION_ORDER_ROW)}};
#undef KTRCL_ROTATION_ORDER_ROW

}  // namespace

#define KTRCL_ROTATION_ORDER_MEMBERS(ORD, NUMBER)                                            \
  GXRotation GXRotation::ORD(double a, double b, double c) {                                 \
    return GXRotation(a, b, c, true, NUMBER);                                                \
  }                                                                                          \
  GXRotation GXRotation::ORD##Rad(double a, double b, double c) {                            \
    return GXRotation(a, b, c, false, NUMBER);                                               \
  }                                                                                          \
  void GXRotation::Set##ORD(double a, double b, double c) { Set(a, b, c, NUMBER); }          \
  void GXRotation::Set##ORD##Rad(double a, double b, double c) { SetRad(a, b, c, NUMBER); }  \
  void GXRotation::Get##ORD(double& a, double& b, double& c) const { Get(a, b, c, NUMBER); } \
  void GXRotation::Get##ORD##Rad(double& a, double& b, double& c) { GetRad(a, b, c, NUMBER); }
KTRCL_ROTATION_ORDERS(KTRCL_ROTATION_ORDER_MEMBERS)
#undef KTRCL_ROTATION_ORDER_MEMBERS
#undef KTRCL_ROTATION_ORDERS

GXString GXRotation::ConvertOrd2String(const int& order) {
  for (const Order& candidate : kOrders) {
    if (candidate.number == order) return GXString(candidate.text);
  }
  return GXString();
}

int GXRotation::ConvertString2Ord(const GXString& order) {
  for (const Order& candidate : kOrders) {
    if (order.Str() == candidate.text) return candidate.number;
  }
  return 0;
}
