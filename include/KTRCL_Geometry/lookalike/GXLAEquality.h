// Whether the cut-outs of two parts match as groups, and the containers that carry the result.
#pragma once

#include <KTRCL_Geometry/Export.h>
#include <KTRCL_Geometry/lookalike/GXLAPart.h>

#include <map>

/// Maps a group of the first part to the corresponding group of the second. Owns nothing, copies
/// the map; it is ordered by pointer value.
class KTRCL_GEOMETRY_EXPORT GXLAContourInstanceMapping
    : public std::map<GXLAContourInstanceRefList*, GXLAContourInstanceRefList*> {
 public:
  GXLAContourInstanceMapping();
  GXLAContourInstanceMapping(const GXLAContourInstanceMapping& other);
  GXLAContourInstanceMapping& operator=(const GXLAContourInstanceMapping& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLAContourInstanceMapping();

  /// Records that the groups correspond. A first group that is already there keeps its partner.
  void AddToMap(GXLAContourInstanceRefList& first, GXLAContourInstanceRefList& second);

  /// The partner of a group of the first part, found by address; null where there is none.
  GXLAContourInstanceRefList* FindInMap(GXLAContourInstanceRefList& first) const;
};

/// Compares the sorted shape lists of two parts, entry against entry.
class KTRCL_GEOMETRY_EXPORT CSortedInternalLAContourListCheck {
 public:
  CSortedInternalLAContourListCheck();

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~CSortedInternalLAContourListCheck();

  /// Whether the lists hold the same shapes in the same order. Both lists are renumbered from 1.
  ///
  /// Entry by entry: total angles the same up to whole turns (`ToleranceAngle`; of two open
  /// contours also with one of them negated), total lengths within 0.001 (inclusive), equal closed
  /// flags and numbers of lines and arcs, in either mode; and unless `headerOnly` the same geometry
  /// by the short form of `GXLAContour::HaveSameGeometry`. `matches` is set to the pairs from first
  /// to second.
  ///
  /// Returns: true, with no pairs and nothing renumbered, also where either list is empty; false,
  ///   nothing renumbered either, for different sizes; false for a null entry. `matches` holds the
  ///   pairs found before a failure.
  /// Caution: it is no search. Shapes with lengths within 0.001 stand in the order of adding; where
  ///   that differs between the parts the result is false.
  /// Caution: the length tolerance is tighter than that of the geometry, 0.05.
  static bool SameInternalLAContourLists(GXLAContourList& first, GXLAContourList& second,
                                         bool headerOnly,
                                         std::map<GXLAContour*, GXLAContour*>& matches,
                                         GXLAContour::eNmbSegmentsMode mode,
                                         GXLATolerances& tolerances);
};

/// Compares the internal structure of two parts. It references the parts, which must outlive it.
class KTRCL_GEOMETRY_EXPORT GXLAIntContoursEqual {
 public:
  /// References the parts' managers and contour lists, the tolerances and the trace (null for
  /// none), all of which must outlive the object.
  GXLAIntContoursEqual(GXLAPart& first, GXLAPart& second, GXLAContour::eNmbSegmentsMode mode,
                       GXLATolerances& tolerances, GXEvent1Param<const GXString&>* trace);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXLAIntContoursEqual();

  GXLAContourManager* FirstManager;       ///< The first part's manager.
  GXLAContourManager* SecondManager;      ///< The second part's manager.
  GXLAContourList* FirstContours;         ///< The first part's shapes.
  GXLAContourList* SecondContours;        ///< The second part's shapes.
  GXLAContour::eNmbSegmentsMode Mode;     ///< From the constructor.
  GXLATolerances& Tolerances;             ///< From the constructor.
  GXEvent1Param<const GXString&>* Trace;  ///< From the constructor; may be null.

  /// Whether the parts have the same shapes of cut-outs, by
  /// `CSortedInternalLAContourListCheck::SameInternalLAContourLists`, with the reasons told to the
  /// trace.
  ///
  /// Returns: true with `mapping` set to the pairs of groups. False with `mapping` as it was; only
  ///   where a shape of a list has no group in its manager it holds the pairs found so far.
  /// Caution: true, with `mapping` as it was, where either part has no groups at all: a part with
  ///   cut-outs and one without pass, so a host that minds compares the counts.
  /// Caution: groups with different numbers of instances pass; the comparison of positions finds
  /// out.
  bool HasSameInternalContourStructure(GXLAContourInstanceMapping& mapping, bool headerOnly);

 private:
  bool SameContourShape(GXLAContour& first, GXLAContour& second, bool basicChecksOnly,
                        GXLAContour::eNmbSegmentsMode mode);
};

/// A pair of ordered maps, one for each direction. Copied by value, from a source that is not
/// const.
template <typename Key, typename Value>
class bimap {
 public:
  std::map<Key, Value> KeyToValue;  ///< Key to value.
  std::map<Value, Key> ValueToKey;  ///< Value to key.

  bimap() = default;
  bimap(bimap& other) : KeyToValue(other.KeyToValue), ValueToKey(other.ValueToKey) {}
  bimap& operator=(bimap& other) {
    KeyToValue = other.KeyToValue;
    ValueToKey = other.ValueToKey;
    return *this;
  }

  /// Sets both directions, replacing what they held for `key` and for `value`. An older partner of
  /// either keeps its own entry in the other map.
  void add(const Key& key, const Value& value) {
    KeyToValue[key] = value;
    ValueToKey[value] = key;
  }

  /// Empties both maps.
  void clear() {
    KeyToValue.clear();
    ValueToKey.clear();
  }
};

/// Which instance of the first part is the partner of which instance of the second, and with which
/// offset. Owns nothing.
class KTRCL_GEOMETRY_EXPORT GXBiMapLAContourInstanceEquality
    : public bimap<GXLAContourInstance*, GXLAContourInstance*> {
 public:
  GXBiMapLAContourInstanceEquality();
  GXBiMapLAContourInstanceEquality(GXBiMapLAContourInstanceEquality& other);
  GXBiMapLAContourInstanceEquality& operator=(GXBiMapLAContourInstanceEquality& other);

  /// @name Virtual operations: their order is part of the binary interface
  virtual ~GXBiMapLAContourInstanceEquality();

  std::map<GXLAContourInstance*, int> Offsets;  ///< Instance of the first part to its offset.

  /// Records a pair in both directions, replacing what was held, and its offset. A first instance
  /// that already has an offset keeps it.
  void AddToBiMap(GXLAContourInstance& first, GXLAContourInstance& second, int offset);
};
