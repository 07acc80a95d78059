/// Writes the sample observations of data/Observations: the published sights as they are entered, and
/// the sights of ships whose position and motion are known, worked backwards to what the sextant
/// shows. Usage: merov_make_samples FOLDER

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "fix/observation_file.h"
#include "numeric/inout_lib.h"
#include "tools/sample_voyages.h"
#include "tools/sight_making.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace merov::samples
{
namespace
{

constexpr double MinutesPerDegree = 60.0;

/// Any box means that a sample is wrong.
class NoBoxes : public numeric::BoxReceiver
{
public:
    numeric::BoxAnswer Show(const numeric::Box& box) override
    {
        throw std::runtime_error(box.Title + ": " + (box.Lines.empty() ? "" : box.Lines.front()));
    }
};

/// A session with everything but the altitudes.
fix::SightSession SessionOf(const Entries& typed, const char* timeTruePos, int n)
{
    fix::SightSession s;
    s.TimeEstPos = TimeOf(typed.TimeEstPos);
    s.EstLat = typed.EstPos.Latitude;
    s.EstLong = typed.EstPos.Longitude;
    s.TimeTruePos = TimeOf(timeTruePos);
    s.OrigCourse = typed.Course;
    s.OrigSpeed = typed.Speed;
    s.HeightOfEye = typed.Sky.HeightOfEye;
    s.DefaultInstCorr = typed.InstCorr;
    s.AirTemp = typed.Sky.AirTemp;
    s.WaterTemp = typed.Sky.WaterTemp;
    s.Pressure = typed.Sky.Pressure;
    fix::AllocateObservations(s, n);
    for (int i = 1; i <= n; ++i)
        s.ObsInstCorr[i] = typed.InstCorr / MinutesPerDegree;
    return s;
}

fix::SightSession Entered(const PublishedSet& set)
{
    fix::SightSession s = SessionOf(set.Typed, set.TimeTruePos, static_cast<int>(set.Sights.size()));
    int i = 0;
    for (const PublishedSight& sight : set.Sights) {
        s.ObsTime[++i] = TimeOf(sight.Time);
        s.ObsBody[i] = sight.Body;
        s.ObsAltitude[i] = sight.Altitude;
    }
    return s;
}

/// The sights as the sextant shows them from where the ship then is, to a tenth of a minute: with the
/// error that nobody knows of and with the slip of the reading.
fix::SightSession Taken(const Voyage& voyage)
{
    fix::SightSession s = SessionOf(voyage.Typed, voyage.TimeTruePos, static_cast<int>(voyage.Sights.size()));
    s.ObsTime[0] = s.TimeTruePos;
    s.ObsLat[0] = voyage.At.Latitude;
    s.ObsLong[0] = voyage.At.Longitude;
    int i = 0;
    for (const MadeSight& sight : voyage.Sights) {
        s.ObsTime[++i] = TimeOf(sight.Time);
        s.ObsBody[i] = sight.Body;
    }
    TakeAltitudes(s, voyage.Course, voyage.Speed);
    for (i = 1; i <= s.ObsCount; ++i) {
        const double slip = voyage.Sights[static_cast<std::size_t>(i - 1)].Slip;
        const double minutes = s.ObsAltitude[i] * MinutesPerDegree + voyage.SystErr + slip;
        s.ObsAltitude[i] = std::round(minutes * 10.0) / 10.0 / MinutesPerDegree;
    }
    return s;
}

/// Writes a session as the program itself would after everything has been typed.
void Write(const std::filesystem::path& file, const fix::SightSession& session)
{
    if (const auto box = fix::WriteObservationFile(file, session)) numeric::ShowBox(*box);
    if (!fix::ConvertObservationFile(file, file)) throw std::runtime_error(file.string());
    std::printf("%s\n", file.c_str());
}

void WriteBytes(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream out(file, std::ios::binary);
    if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
        throw std::runtime_error(file.string());
    std::printf("%s\n", file.c_str());
}

/// The oldest form: every field as the screen shows it, in Latin-1.
std::string TextForm(const fix::SightSession& s)
{
    const auto record = [](const std::vector<std::string>& texts) {
        std::string line;
        for (const std::string& text : texts)
            line += (line.empty() ? "\"" : ",\"") + text + "\"";
        for (std::size_t at; (at = line.find("\u00B0")) != std::string::npos;)
            line.replace(at, 2, "\xB0");
        return line + "\r\n";
    };
    const auto time = [](double dateTime) { return ephemeris::FormatDateTime(dateTime, fix::GridTimePicture); };
    const auto pattern = [](double value, const char* form) { return numeric::FormatNumber(value, form); };
    std::string bytes = record({time(s.TimeEstPos)});
    bytes += record({numeric::FormatLat(s.EstLat), numeric::FormatLong(s.EstLong)});
    bytes += record({time(s.TimeTruePos)});
    bytes += record({pattern(s.OrigCourse, "000\u00B0.0"), pattern(s.OrigSpeed, "000.0")});
    bytes += record({pattern(s.HeightOfEye, "00.0"), pattern(s.DefaultInstCorr, "+00.00;-00.00")});
    bytes += record({pattern(s.AirTemp, "000"), pattern(s.WaterTemp, "000"), pattern(s.Pressure, "0000")});
    bytes += std::to_string(s.ObsCount) + "\r\n";
    for (int i = 1; i <= s.ObsCount; ++i)
        bytes += record({time(s.ObsTime[i]), s.ObsBody[i], fix::AltitudeCellText(s.ObsAltitude[i]),
                         fix::CorrectionCellText(s.ObsInstCorr[i])});
    return bytes + "\"This is an Mero 0.9 observations datas file.\"\r\n";
}

/// The same sights in the two older forms.
void WriteOldForms(const std::filesystem::path& folder, const fix::SightSession& session)
{
    std::string bytes = fix::FormatObservationFile(session);
    bytes.replace(bytes.find("Merov 1.x"), 9, "Mero 1.0");
    WriteBytes(folder / "old_form_1_0.obs", bytes);
    WriteBytes(folder / "old_form_0_9.obs", TextForm(session));
}

void MakeSamples(const std::filesystem::path& folder)
{
    NoBoxes receiver;
    const numeric::ScopedBoxReceiver scope(receiver);
    for (const PublishedSet& set : PublishedSets())
        Write(folder / set.File, Entered(set));
    for (const Voyage& voyage : Voyages())
        Write(folder / voyage.File, Taken(voyage));
    WriteOldForms(folder, Taken(VoyageOf("two_sights.obs")));
}

} // namespace
} // namespace merov::samples

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    try {
        merov::ephemeris::SetDataFolder(MEROV_RUN_DIR);
        merov::samples::MakeSamples(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
