// What one camera sees of the scene when one request is captured: its part of
// the scene, through its lens, at the exposure of that moment. The same request,
// camera and light always give the same view. Reads the scene only.
#pragma once

#include <cstdint>
#include <vector>

#include "scene.h"

namespace capture {

inline constexpr unsigned kMaxCameras = 6;

/// The light that neutral surfaces seem to be under.
struct WhiteBalance {
  double redGain, blueGain;  // that make the mean colour grey
  double temperature;        // correlated colour temperature, kelvin

  Rgb gains() const { return {redGain, 1, blueGain}; }
};

struct Chromaticity {
  double x, y;
};

Chromaticity chromaticityOf(Rgb color);

/// The correlated colour temperature, kept where it means something.
double temperatureOf(Chromaticity color);

/// The CamX id: every camera counts its own requests. The first is 10, as
/// extended exposures of lower ids are never recorded.
inline unsigned camxRequest(unsigned index, unsigned camera) { return index + 10 + 7 * camera; }

class View {
 public:
  /// `index` counts the requests of the session from 0; `scene` must outlive the view.
  View(const Scene& scene, Rgb light, unsigned index, unsigned camera);

  unsigned request() const { return camxRequest(index_, camera_); }
  unsigned camera() const { return camera_; }
  unsigned index() const { return index_; }

  /// What the sensor reads, 0 to 1 with black at 0, averaged over a box of the frame.
  Rgb mean(const Box& box) const;
  std::vector<Rgb> grid(int columns, int rows) const;

  /// Gain over the base sensitivity, and how far hand shake moved the frame.
  double gain() const { return gain_; }
  double shakeX() const { return shakeX_; }
  double shakeY() const { return shakeY_; }

  WhiteBalance whiteBalance() const;

  /// What the sensor makes of a grey surface under the light, unexposed.
  Rgb grey() const;

  /// The mean of all that is in front of the device: the same for every camera.
  Rgb ambient() const { return scene_.mean(Box()) * light_; }

  /// What the lens lets through at a place of the frame.
  double transmission(double u, double v) const;

  /// Where the pipeline of this process keeps the frame: a pointer that means
  /// nothing in another process or for another frame.
  std::uint64_t frameBuffer() const;

 private:
  Rgb onSensor(Rgb sceneColor, double u, double v) const;

  const Scene& scene_;
  Rgb light_;
  unsigned index_, camera_;
  double shakeX_, shakeY_, gain_;
};

}  // namespace capture
