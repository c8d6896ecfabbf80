// The kernel's frames, rotations and planes, and the two classes on top of them, on any numbers:
// outputs that are written with success alone, and objects that stay in one of their states.
#include "KernelInput.h"

#include <KTRCL_Geometry/kernel/Frames.h>
#include <KTRCL_Geometry/kernel/GXConicSurface.h>
#include <KTRCL_Geometry/kernel/Vectors.h>
#include <KTRCL_Geometry/kernel/ttvPlaneCS.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

namespace {

using kernel_fuzz::Frame;
using kernel_fuzz::KernelInput;
using kernel_fuzz::Output;
using kernel_fuzz::OutputRows;
using kernel_fuzz::Point;
using kernel_fuzz::Points;
using kernel_fuzz::Require;
using kernel_fuzz::RequirePointIsWritten;
using kernel_fuzz::RequirePointRoutine;
using kernel_fuzz::Same;

/// Any three rows; or, more often, a frame of three points.
Frame SomeFrame(KernelInput& input) {
  Frame frame;
  const bool any = input.Flag();
  const Points<3> p = input.Some<3>();
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) frame.rows[row][column] = p[row].c[column];
  }
  if (!any) static_cast<void>(Lambda(p[0], p[1], p[2], frame.rows));
  return frame;
}

/// The inverse of a frame; or, where there is none, any rows.
Frame InverseOf(const Frame& frame) {
  Frame inverse = frame;
  static_cast<void>(Invmat(frame, inverse.rows));
  return inverse;
}

// ----- Frames

/// Whether no square of a length between points of such coordinates can vanish.
bool AreOfUsualSize(const Points<3>& points) {
  for (const Point& point : points) {
    for (const double x : point.c) {
      if (x != 0.0 && !(std::abs(x) > 1e-6 && std::abs(x) < 1e6)) return false;
    }
  }
  return true;
}

void RunFrames(KernelInput& input) {
  const Points<3> p = input.Some<3>();
  OutputRows<3> frame;
  const int made = Lambda(p[0], p[1], p[2], frame);
  Require(made == 0 || made == 1, "Lambda", "0 or 1");
  Require(frame.Written(0), "Lambda", "X is written in all cases");
  for (std::size_t row = 1; row < 3; ++row) {
    Require(made == 1 ? frame.Written(row) : frame.Untouched(row), "Lambda", "Y and Z with 1");
  }
  if (made == 0 || !AreOfUsualSize(p)) return;
  for (std::size_t i = 0; i < 9; ++i) {
    Require(!(std::abs(frame.At(i / 3, i % 3)) > 1.0000001), "Lambda", "no component above 1");
  }
}

void RunInverse(KernelInput& input) {
  const Frame frame = SomeFrame(input);
  OutputRows<3> inverse;
  const int made = Invmat(frame, inverse);
  Require(made == 0 || made == 1, "Invmat", "0 or 1");
  Frame inPlace = frame;
  Require(Invmat(inPlace, inPlace.rows) == made, "Invmat", "the same in place");
  for (std::size_t row = 0; row < 3; ++row) {
    Require(made == 1 ? inverse.Written(row) : inverse.Untouched(row), "Invmat", "written with 1");
    for (std::size_t column = 0; column < 3; ++column) {
      const double expected = made == 1 ? inverse.At(row, column) : frame.rows[row][column];
      Require(Same(inPlace.rows[row][column], expected), "Invmat", "the same in place");
    }
  }
}

void RunConversions(KernelInput& input) {
  const Frame frame = SomeFrame(input);
  const Frame inverse = InverseOf(frame);
  const Points<2> p = input.Some<2>();
  RequirePointIsWritten("Gloloc", p, [&](const auto& in, double* out) {
    Require(Gloloc(in[0], out, in[1], frame) == 1, "Gloloc", "always 1");
  });
  RequirePointIsWritten("Locglo", p, [&](const auto& in, double* out) {
    Require(Locglo(in[0], out, in[1], inverse) == 1, "Locglo", "always 1");
  });
  RequirePointIsWritten("Project_point_on_plane_m", p, [&](const auto& in, double* out) {
    const int result = Project_point_on_plane_m(frame, inverse, in[1], in[0], out);
    Require(result == 1, "Project_point_on_plane_m", "always 1");
  });
  const Point shift = input.SomePoint();
  Output<3> placed;
  Vector_copy_a_to_b(p[0], placed);
  PlacePointToPosition(placed, shift, p[1], inverse);
  Require(placed.Written(), "PlacePointToPosition", "a figure");
}

// ----- Rotations

void RunRotations(KernelInput& input) {
  const int unit = input.Unit();
  const double angle = input.Number();
  const Points<3> p = input.Some<3>();
  const Point& a = p[1];
  const Point& b = p[2];
  const int turned = RequirePointRoutine("Rotate_a_point", p, [&](const auto& in, double* out) {
    return Rotate_a_point(unit, a.c[0], a.c[1], a.c[2], b.c[0], b.c[1], b.c[2], angle, in[0], out);
  });
  Output<3> apart;
  static_cast<void>(
      Rotate_a_point(unit, a.c[0], a.c[1], a.c[2], b.c[0], b.c[1], b.c[2], angle, p[0], apart));
  for (const auto routine : {&Rotate_on_an_axis, &Rotate_an_axis}) {
    Point inPlace = p[0];
    routine(unit, a, b, angle, inPlace);
    Require(turned == 1 ? Same(apart, inPlace) : Same(inPlace, p[0]), "Rotate_an_axis",
            "Rotate_a_point in place");
  }
  Point bare = p[0];
  Require(Rotatp(a.c[0], a.c[1], a.c[2], b.c[0], b.c[1], b.c[2], angle, bare) == 1, "Rotatp",
          "always 1");
  Require(std::abs(angle) > 1e-08 || std::isnan(angle) || Same(bare, p[0]), "Rotatp",
          "a small angle turns nothing");
}

void RunTurnsAboutAxes(KernelInput& input) {
  const int unit = input.Unit();
  const int axis = input.Whole();
  const double angle = input.Number();
  const Points<2> p = input.Some<2>();
  Point free = p[0];
  Rotate_a_point_on_XYZ_axis(unit, angle, free, axis, nullptr);
  Point about = p[0];
  const Point zero = {{0, 0, 0}};
  Rotate_a_point_on_XYZ_axis(unit, angle, about, axis, zero);
  Require(Same(free, about), "Rotate_a_point_on_XYZ_axis", "null is the global origin");
  Rotate_a_point_on_XYZ_axis(unit, angle, about, axis, p[1]);
  Point flat = p[0];
  Require(Ruotac(&flat.c[0], &flat.c[1], p[1].c[0], p[1].c[1], angle) == 0, "Ruotac", "always 0");
  Require(Same(flat.c[2], p[0].c[2]), "Ruotac", "two coordinates alone");
}

// ----- Planes

void RunPlanesAcross(KernelInput& input) {
  const int unit = input.Unit();
  const Points<2> p = input.Some<2>();
  OutputRows<3> frame;
  const int made = Plane_by_a_Normal_Point(unit, p[0], p[1], frame);
  Require(made == 0 || made == 1, "Plane_by_a_Normal_Point", "0 or 1");
  for (std::size_t row = 0; row < 3; ++row) {
    Require(made == 1 ? frame.Written(row) : frame.Untouched(row), "Plane_by_a_Normal_Point",
            "written with 1");
  }
  Output<3> o1;
  Output<3> o2;
  Output<3> o3;
  const int across = Perpendicular_plane_of_line(p[0], p[1], o1, o2, o3);
  Require(across == 0 || across == 1, "Perpendicular_plane_of_line", "0 or 1");
  const bool written = o1.Written() && o2.Written() && o3.Written();
  const bool untouched = o1.Untouched() && o2.Untouched() && o3.Untouched();
  Require(across == 1 ? written : untouched, "Perpendicular_plane_of_line", "written with 1");
}

void RunPlanes(KernelInput& input) {
  const int unit = input.Unit();
  const Points<5> p = input.Some<5>();
  static_cast<void>(PointInPlane(unit, p[0], p[1], p[2], p[3]));
  Require(Same(dirchk1_dll(p[0], p[1], p[2], p[0]), 0.0) ||
              std::isnan(dirchk1_dll(p[0], p[1], p[2], p[0])),
          "dirchk1_dll", "0 for a point of the plane");
  RequirePointRoutine("Project_point_on_plane", p, [](const auto& in, double* out) {
    return Project_point_on_plane(in[0], in[1], in[2], in[3], out);
  });
  RequirePointRoutine("Planar_symmetric_a_point_by_a_line", p, [&](const auto& in, double* out) {
    return Planar_symmetric_a_point_by_a_line(unit, in[0], in[1], in[2], out);
  });
  RequirePointRoutine("Cal_inter_plane_line", p, [](const auto& in, double* out) {
    return Cal_inter_plane_line(in[0], in[1], in[2], in[3], in[4], out);
  });
}

void RunPlanesOfFrames(KernelInput& input) {
  const Frame frame = SomeFrame(input);
  const Frame inverse = InverseOf(frame);
  const Points<3> p = input.Some<3>();
  const int first =
      RequirePointRoutine("Cal_inter_plane_line", p, [&](const auto& in, double* out) {
        return Cal_inter_plane_line(in[0], in[1], in[2], out, frame, inverse);
      });
  const int second =
      RequirePointRoutine("Cal_inter_plane_line", p, [&](const auto& in, double* out) {
        return Cal_inter_plane_line(in[1], in[2], out, frame, in[0], inverse);
      });
  Require(first == second, "Cal_inter_plane_line", "the same in either order");
  Output<3> chosen;
  Vector_copy_a_to_b(p[0], chosen);
  Select_correct_point(chosen, p[1], p[2], frame, p[0], inverse);
  Require(chosen.Written(), "Select_correct_point", "a figure");
}

// ----- Classes

void RequirePlane(ttvPlaneCS& plane, const Points<3>& p) {
  const int valid = plane.Valid ? 1 : 0;
  const auto local = [&](const auto& in, double* out) {
    Require(static_cast<int>(plane.Get_local_point(in[0], out)) == valid, "Get_local_point",
            "the flag");
    Require(valid == 1 || Same(Point{{out[0], out[1], out[2]}}, p[0]), "Get_local_point",
            "a copy of an object that is not valid");
  };
  RequirePointIsWritten("Get_local_point", p, local);
  RequirePointIsWritten("Get_global_point", p, [&](const auto& in, double* out) {
    Require(static_cast<int>(plane.Get_global_point(in[0], out)) == valid, "Get_global_point",
            "the flag");
  });
  RequirePointIsWritten("Project", p,
                        [&](const auto& in, double* out) { plane.Project(in[0], out); });
  Output<3> foot;
  plane.Project(p[0], foot);
  Point inPlace = p[0];
  plane.Project(inPlace);
  Require(Same(foot, inPlace), "Project", "the same in place");
  for (const bool global : {false, true}) {
    RequirePointRoutine("Cal_inter_plane_line", p, [&](const auto& in, double* out) {
      return plane.Cal_inter_plane_line(in[0], in[1], out, global);
    });
    RequirePointRoutine("Cal_inter_plane_line_local", p, [&](const auto& in, double* out) {
      return plane.Cal_inter_plane_line_local(in[0], in[1], out, global);
    });
  }
}

void ChangePlane(ttvPlaneCS& plane, KernelInput& input) {
  for (int step = 0; step < 6; ++step) {
    const std::uint8_t what = input.Byte();
    const Points<3> p = input.Some<3>();
    switch (what % 8) {
      case 0:
        static_cast<void>(plane.Calculate());
        break;
      case 1:
        plane.CS_points();
        break;
      case 2:
        plane.Change_x_dir(p[0]);
        break;
      case 3:
        Require(plane.Resetup(p[0], p[1], p[2], what > 127 ? -3 : 0) == plane.Valid, "Resetup",
                "the flag");
        break;
      case 4:
        static_cast<void>(plane.Resetup(plane.UnitZ, plane.Origin, plane.XPoint, -3));
        break;
      case 5:
        plane.Resetup_to_new_X(p[0], p[1]);
        break;
      case 6:
        plane.Resetup_to_new_X(plane.XPoint, plane.Origin);
        break;
      default:
        return;
    }
    RequirePlane(plane, p);
  }
}

void RunPlaneObjects(KernelInput& input) {
  const int unit = input.Unit();
  const bool byNormal = input.Flag();
  const Points<3> p = input.Some<3>();
  const Frame frame = SomeFrame(input);
  ttvPlaneCS ofFrame(unit, p[0], frame);
  Require(ofFrame.Valid, "ttvPlaneCS", "valid by any frame");
  ttvPlaneCS plane = byNormal ? ttvPlaneCS(unit, p[0], p[1])
                              : ttvPlaneCS(unit, p[0], p[1], p[2], input.Flag() ? -3 : 0);
  RequirePlane(ofFrame, p);
  RequirePlane(plane, p);
  ChangePlane(plane, input);
  static_cast<void>(plane.Define_same_CS(ofFrame));
  static_cast<void>(plane.Perpendicular(ofFrame));
  Require(plane.Parallel(ofFrame) == ofFrame.Parallel(plane), "Parallel", "either way");
}

/// Constructs an object on memory that is not clear.
void RunUnsetObjects(KernelInput& input) {
  const int unit = input.Unit();
  alignas(GXConicSurface) unsigned char memory[sizeof(GXConicSurface)];
  std::memset(memory, 0xff, sizeof memory);
  const auto* const surface = new (memory) GXConicSurface(unit);
  Require(!surface->Valid && surface->Unit == unit && Same(surface->Radius, 0.0), "GXConicSurface",
          "unset");
  for (const double* const field :
       {surface->Origin, surface->XPoint, surface->YPoint, surface->ZPoint, surface->UnitX,
        surface->UnitY, surface->UnitZ, surface->Frame[2], surface->Inverse[2]}) {
    Require(Same(field[0], 0.0) && Same(field[2], 0.0), "ttvPlaneCS", "every field is 0");
  }
  surface->~GXConicSurface();
}

void RunSurfaces(KernelInput& input) {
  const int unit = input.Unit();
  const double radius = input.Number();
  const Points<4> p = input.Some<4>();
  const Frame frame = SomeFrame(input);
  const GXConicSurface surfaces[] = {GXConicSurface(unit, p[0], p[1], p[2], radius),
                                     GXConicSurface(unit, p[0], p[1], radius),
                                     GXConicSurface(unit, p[0], frame, radius)};
  for (const GXConicSurface& surface : surfaces) {
    Require(Same(surface.Radius, radius), "GXConicSurface", "the radius is kept");
    Require(!surface.Valid || !(std::abs(radius) < 0.0001), "GXConicSurface",
            "not valid with a short radius");
    static_cast<void>(surface.Point_on_surface(p[3]));
    const double angle = surface.Cylindrical_angle_radian(p[2], p[3]);
    Require(angle == -1.0 || !(angle < 0.0 || angle > 3.1415926535897936),
            "Cylindrical_angle_radian", "-1, or 0 to pi");
    Require(Same(surface.Cylindrical_simple_angle_radian(p[2], p[3]), angle),
            "Cylindrical_simple_angle_radian", "the same");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kernel_fuzz::RunAll(data, size,
                      {&RunFrames, &RunInverse, &RunConversions, &RunRotations, &RunTurnsAboutAxes,
                       &RunPlanesAcross, &RunPlanes, &RunPlanesOfFrames, &RunPlaneObjects,
                       &RunUnsetObjects, &RunSurfaces});
  return 0;
}
