// The options of qolf draw.
#include "app/base/Errors.h"
#include "app/commands/Command.h"
#include "app/draw/DrawArguments.h"
#include "app/page/PageArguments.h"

#include <CLI/CLI.hpp>

#include <initializer_list>
#include <memory>
#include <string>

namespace app {
namespace {

constexpr const char* kDrawFooter = R"(
Inputs are MIF files, GeoJSON and GeoPackages; a folder means the files in
it and below, and so does an archive. The picture is SVG, PNG or PDF by the
extension of OUT; with .html it is a page for the browser, to walk through
without a network. Files are drawn in their order, the last one on top. Pens,
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
  qolf draw --crs EPSG:3857 --background '#eef4f8' roads.mif web.png
  qolf draw --label NAME roads.mif places.mif map.html)";

// All that the command line may say; a map takes the half that it needs.
struct Arguments : DrawArguments {
    std::string size;
    std::string tiles;
    std::string attribution;
};

// Throws UsageError for the first of the options that is given.
void RefuseOptions(const CLI::App& command, std::initializer_list<const char*> options,
                   const std::string& reason) {
    for (const char* const option : options) {
        if (command.count(option) > 0) {
            throw UsageError(option + reason);
        }
    }
}

PageArguments PageArgumentsOf(const Arguments& arguments) {
    PageArguments page;
    static_cast<MapArguments&>(page) = arguments;
    page.size = arguments.size;
    page.tiles = arguments.tiles;
    page.attribution = arguments.attribution;
    return page;
}

// Puts the files that the user means in place of what was named; they are there as long as the
// result.
Inputs ResolveInputs(MapInput& map, CommandContext& context) {
    map.modulePath = context.modulePath;
    Inputs inputs = context.Resolve(map.paths, InputRule::Files);
    map.paths = inputs.arguments;
    return inputs;
}

int Run(const CLI::App& command, const Arguments& arguments, CommandContext& context) {
    if (IsPage(arguments)) {
        RefuseOptions(command, {"--width", "--height", "--margin"},
                      " is for pictures: a page is as large as its window");
        PageOptions options = CheckedPageOptions(PageArgumentsOf(arguments));
        const Inputs inputs = ResolveInputs(options.map, context);
        return RunPage(options, context.reporter);
    }
    RefuseOptions(command, {"--size", "--tiles", "--attribution"},
                  " is for pages: give the output the extension .html");
    DrawOptions options = CheckedDrawOptions(arguments);
    const Inputs inputs = ResolveInputs(options.map, context);
    return RunDraw(options, context.reporter);
}

}  // namespace

void AddDrawCommand(CLI::App& program, CommandContext& context) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        program.add_subcommand("draw", "Draw a map of MIF files, GeoJSON and GeoPackages");
    command
        ->add_option("files", arguments->files,
                     "Files and folders to draw, then the picture or page: IN... OUT")
        ->type_name("FILE")
        ->required();
    command
        ->add_option("--to", arguments->format,
                     "Format: svg, png, pdf or html, whatever OUT is called")
        ->type_name("FORMAT");
    command->add_option("--format", arguments->format)->group("");  // its name in older scripts
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
        ->type_name("SYSTEM");
    command
        ->add_option("--assume-crs", arguments->assumedCrs,
                     "Coordinate system of the MIF files, whatever their headers say")
        ->type_name("SYSTEM");
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
    command
        ->add_option("--size", arguments->size,
                     "How large a page may be (20M); lines are thinned until it fits")
        ->type_name("BYTES");
    command
        ->add_option("--tiles", arguments->tiles,
                     "Show a base map below, from this address with {z}, {x} and {y}")
        ->type_name("URL");
    command->add_option("--attribution", arguments->attribution, "Who the base map is by")
        ->type_name("TEXT");
    command->add_flag("--overwrite", arguments->overwrite,
                      "Replace the picture or page if it exists");
    command->add_flag("--as-is", arguments->asIs, "Hand files to the module as they are");
    command
        ->add_option("--encoding", arguments->encoding,
                     "Encoding of the texts, whatever the headers say")
        ->type_name("NAME");
    command->footer(kDrawFooter);
    command->callback([arguments, command, &context] {
        context.run = [arguments, command, &context] { return Run(*command, *arguments, context); };
    });
}

}  // namespace app
