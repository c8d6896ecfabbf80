#include <KTRCL_DataTypes/KTRCL_DataTypes.h>

int main() {
  const bool rounds = GXMath::RoundToDec(2.5, 0) == 3.0;
  const bool writes = GXString(0.1, -1).Str() == "0.1";
  return rounds && writes ? 0 : 1;
}
