// The options of qolf draw.
#include "app/commands/Command.h"
#include "app/draw/DrawArguments.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kDrawFooter = R"(
Inputs are MIF files, GeoJSON and GeoPackages; a folder means the files in
it and below, and so does an archive. The picture is SVG, PNG or PDF by the
extension of OUT. Files are drawn in their order, the last one on top. Pens,
brushes, symbols and fonts are those of the file; what it says nothing about,
and everything with --ignore-styles, has a colour of its own for each layer.
Layers of other coordinate systems are moved into that of the first, or into
the one that --crs names.

Examples:
  qolf draw roads.mif roads.png
  qolf draw lakes.mif roads.gpkg places.geojson map.svg
  qolf draw --ignore-styles --legend maps/ overview.png
  qolf draw --label places:NAME --scale-bar roads.mif places.mif map.pdf
  qolf draw --bbox 24.5,59.3,25,59.5 --width 1600 roads.mif centre.pdf
  qolf draw --crs EPSG:3857 --background '#eef4f8' roads.mif web.png)";

}  // namespace

void AddDrawCommand(CLI::App& program, CommandContext& context) {
    const auto arguments = std::make_shared<DrawArguments>();
    CLI::App* command =
        program.add_subcommand("draw", "Draw a map of MIF files, GeoJSON and GeoPackages");
    command
        ->add_option("files", arguments->files,
                     "Files and folders to draw, then the picture: IN... OUT")
        ->type_name("FILE")
        ->required();
    command->add_option("--format", arguments->format, "svg, png or pdf, whatever OUT is called")
        ->type_name("NAME");
    command->add_option("--width", arguments->width, "Width of the picture")->type_name("PIXELS");
    command->add_option("--height", arguments->height, "Height of the picture")
        ->type_name("PIXELS");
    command->add_option("--margin", arguments->margin, "Free space on each side (12)")
        ->type_name("PIXELS");
    command
        ->add_option("--bbox", arguments->bbox,
                     "The part of the map to draw, in the picture's coordinate system")
        ->type_name("X1,Y1,X2,Y2");
    command->add_option("--background", arguments->background, "A colour; none is transparent")
        ->type_name("COLOR");
    command
        ->add_option("--crs", arguments->crs,
                     "Coordinate system of the picture: keep, wgs84 or a definition (EPSG:3301)")
        ->type_name("CRS");
    command
        ->add_option("--assume-crs", arguments->assumedCrs,
                     "Coordinate system of the MIF files, whatever their headers say")
        ->type_name("CRS");
    command->add_flag("--ignore-styles", arguments->ignoreStyles,
                      "Draw each layer in a colour of its own");
    command
        ->add_option("--label", arguments->labels,
                     "Label the objects with this column; more than one --label may be given")
        ->type_name("[LAYER:]COLUMN")
        ->allow_extra_args(false);
    command
        ->add_option("--where", arguments->where,
                     "Draw the objects of which this SQL expression over their columns is true")
        ->type_name("EXPRESSION");
    command->add_flag("--legend", arguments->legend, "Show the styles of each layer");
    command->add_flag("--scale-bar", arguments->scaleBar, "Show how long a kilometre is");
    command->add_option("--title", arguments->title, "Words at the top of the picture")
        ->type_name("TEXT");
    command->add_flag("--overwrite", arguments->overwrite, "Replace the picture if it exists");
    command->add_flag("--as-is", arguments->asIs, "Hand files to the module as they are");
    command
        ->add_option("--encoding", arguments->encoding,
                     "Encoding of the texts, whatever the headers say")
        ->type_name("NAME");
    command->footer(kDrawFooter);
    command->callback([arguments, &context] {
        context.run = [arguments, &context] {
            DrawOptions options = CheckedDrawOptions(*arguments);
            options.map.modulePath = context.modulePath;
            const Inputs inputs = context.Resolve(options.map.paths, InputRule::Files);
            options.map.paths = inputs.arguments;
            return RunDraw(options, context.reporter);
        };
    });
}

}  // namespace app
