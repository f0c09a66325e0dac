"""The checker on made-up trees: each rule finds its breach, and nothing in a clean tree."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path

import check_house
import house_rules
from source_tree import Albero

PULITO = {
    "src/core/money.h": "#pragma once\n#include <QString>\n",
    "src/data/gateway.h": '#pragma once\n#include "core/money.h"\n',
    "src/kit/ui/box.cpp": '#include <QPushButton>\n#include "data/gateway.h"\n',
    "src/sale/rows.h": '#pragma once\n#include <QAbstractTableModel>\n#include "data/gateway.h"\n',
    "src/counter/ui/screen.h": '#pragma once\n#include <QtWidgets/QWidget>\n#include "sale/rows.h"\n',
    "src/app/main.cpp": '#include <QApplication>\n#include "counter/ui/screen.h"\n',
    "tools/maker/make.cpp": '#include "data/gateway.h"\n',
    "tests/app/test_start.cpp": '#include "counter/ui/screen.h"\n',
    "tests/sale/test_rows.cpp": '#include "sale/rows.h"\n',
    "tests/kit_ui/test_box.cpp": "#include <QPushButton>\n",
}

WIDGET = {"QWidget", "QPushButton", "QApplication", "qpushbutton.h"}


class HouseTest(unittest.TestCase):
    def setUp(self):
        cartella = tempfile.TemporaryDirectory()
        self.addCleanup(cartella.cleanup)
        self.radice = Path(cartella.name)

    def scrivi(self, file):
        for percorso, testo in file.items():
            (self.radice / percorso).parent.mkdir(parents=True, exist_ok=True)
            (self.radice / percorso).write_text(testo, encoding="utf-8")

    def violazioni(self, regola, *altro, **file):
        self.scrivi(PULITO)
        self.scrivi(file.get("file", {}))
        return list(regola(Albero(self.radice), *altro))

    def unaSola(self, regola, *altro, file, dice):
        trovate = self.violazioni(regola, *altro, file=file)
        self.assertEqual(len(trovate), 1, trovate)
        self.assertIn(dice, trovate[0])


class Floors(HouseTest):
    def testCleanTreePasses(self):
        self.assertEqual(self.violazioni(house_rules.piani), [])

    def testIncludeOfAHigherFloorIsFound(self):
        self.unaSola(
            house_rules.piani, file={"src/core/bad.cpp": '#include "sale/rows.h"\n'}, dice="src/core/bad.cpp"
        )

    def testIncludeAmongSpacesIsFound(self):
        self.unaSola(
            house_rules.piani, file={"src/core/bad.cpp": ' #  include  "sale/rows.h"\n'}, dice="sale/rows.h"
        )

    def testUiFolderBelongsToItsFloor(self):
        self.unaSola(
            house_rules.piani, file={"src/kit/ui/bad.h": '#include "sale/rows.h"\n'}, dice="src/kit/ui/bad.h"
        )

    def testRulesDoNotIncludeTheirOwnWindow(self):
        self.unaSola(
            house_rules.piani,
            file={"src/counter/bad.cpp": '#include "counter/ui/screen.h"\n'},
            dice="counter/ui/screen.h",
        )

    def testCommentedIncludeDoesNotCount(self):
        file = {"src/core/good.cpp": '// #include "sale/rows.h"\n/*\n#include "sale/rows.h"\n*/\n'}
        self.assertEqual(self.violazioni(house_rules.piani, file=file), [])

    def testFolderWithoutAFloorIsFound(self):
        self.unaSola(house_rules.piani, file={"src/extra/new.h": ""}, dice="src/extra/new.h")

    def testFileBesideTheFloorsIsFound(self):
        self.unaSola(house_rules.piani, file={"src/loose.h": ""}, dice="src/loose.h")

    def testSourceDoesNotIncludeATool(self):
        file = {"src/data/bad.cpp": '#include "maker/make.h"\n', "tools/maker/make.h": ""}
        self.unaSola(house_rules.piani, file=file, dice="not of src/")

    def testToolDoesNotIncludeTheApplication(self):
        file = {"tools/maker/bad.cpp": '#include "app/start.h"\n', "src/app/start.h": ""}
        self.unaSola(house_rules.piani, file=file, dice="tools/maker/bad.cpp")

    def testApplicationsOwnTestsIncludeIt(self):
        file = {"tests/app/test_more.cpp": '#include "app/start.h"\n', "src/app/start.h": ""}
        self.assertEqual(self.violazioni(house_rules.piani, file=file), [])

    def testOtherTestsDoNotIncludeTheApplication(self):
        file = {"tests/sale/bad.cpp": '#include "app/start.h"\n', "src/app/start.h": ""}
        self.unaSola(house_rules.piani, file=file, dice="tests/sale/bad.cpp")


class IncludePaths(HouseTest):
    def testCleanTreePasses(self):
        self.assertEqual(self.violazioni(house_rules.risolti), [])

    def testPathFromTheSourcesOwnFolderIsFound(self):
        self.unaSola(house_rules.risolti, file={"src/sale/bad.cpp": '#include "rows.h"\n'}, dice='"rows.h"')

    def testGeneratedFileIsNoPath(self):
        file = {"src/kit/ui/good.cpp": '#include "good.moc"\n'}
        self.assertEqual(self.violazioni(house_rules.risolti, file=file), [])


class Circles(HouseTest):
    def testCleanTreeHasNone(self):
        trovate = self.violazioni(house_rules.circoliHeader) + self.violazioni(house_rules.circoliCartelle)
        self.assertEqual(trovate, [])

    def testCircleOfHeadersIsNamed(self):
        file = {
            "src/core/a.h": '#include "core/b.h"\n',
            "src/core/b.h": '#include "core/c.h"\n',
            "src/core/c.h": '#include "core/a.h"\n',
        }
        self.unaSola(
            house_rules.circoliHeader,
            file=file,
            dice="src/core/a.h > src/core/b.h > src/core/c.h > src/core/a.h",
        )

    def testHeaderThatIncludesItselfIsFound(self):
        file = {"src/core/a.h": '#include "core/a.h"\n'}
        self.unaSola(house_rules.circoliHeader, file=file, dice="src/core/a.h > src/core/a.h")

    def testCircleOfToolHeadersIsFound(self):
        file = {"tools/maker/a.h": '#include "maker/b.h"\n', "tools/maker/b.h": '#include "a.h"\n'}
        self.unaSola(house_rules.circoliHeader, file=file, dice="tools/maker/a.h > tools/maker/b.h")

    def testSourcesMayUseEachOthersHeaders(self):
        file = {
            "src/core/a.h": "",
            "src/core/b.h": "",
            "src/core/a.cpp": '#include "core/b.h"\n',
            "src/core/b.cpp": '#include "core/a.h"\n',
        }
        self.assertEqual(self.violazioni(house_rules.circoliHeader, file=file), [])

    def testTwoWaysToOneHeaderAreNoCircle(self):
        file = {
            "src/core/a.h": '#include "core/b.h"\n#include "core/c.h"\n',
            "src/core/b.h": '#include "core/d.h"\n',
            "src/core/c.h": '#include "core/d.h"\n',
            "src/core/d.h": "",
        }
        self.assertEqual(self.violazioni(house_rules.circoliHeader, file=file), [])

    def testCircleOfFoldersThroughSourcesIsFound(self):
        file = {"src/data/bad.cpp": '#include "sale/rows.h"\n'}
        self.unaSola(house_rules.circoliCartelle, file=file, dice="sale > data > sale")

    def testFolderAndItsWindowsAreNoCircle(self):
        file = {"src/sale/ui/view.cpp": '#include "sale/rows.h"\n'}
        self.assertEqual(self.violazioni(house_rules.circoliCartelle, file=file), [])

    def testRulesThatUseTheirWindowsAreACircle(self):
        file = {
            "src/sale/ui/view.h": '#include "sale/rows.h"\n',
            "src/sale/rows.cpp": '#include "sale/ui/view.h"\n',
        }
        self.unaSola(house_rules.circoliCartelle, file=file, dice="sale > sale/ui > sale")


class Widgets(HouseTest):
    def testCleanTreePasses(self):
        self.assertEqual(self.violazioni(house_rules.widget, WIDGET), [])

    def testWidgetInARuleIsFound(self):
        for include in ("QPushButton", "QtWidgets", "QtWidgets/QLabel", "QtWidgets/QtWidgets", "qpushbutton.h"):
            with self.subTest(include):
                file = {"src/sale/bad.h": f"#include <{include}>\n"}
                nomi = WIDGET | {"QtWidgets"}
                self.unaSola(house_rules.widget, nomi, file=file, dice=f"<{include}>")

    def testWidgetInATestOfRulesIsFound(self):
        file = {"tests/sale/bad.cpp": "#include <QPushButton>\n"}
        self.unaSola(house_rules.widget, WIDGET, file=file, dice="tests/sale/bad.cpp")

    def testWidgetInAToolIsFound(self):
        file = {"tools/maker/bad.cpp": "#include <QPushButton>\n"}
        self.unaSola(house_rules.widget, WIDGET, file=file, dice="tools/maker/bad.cpp")

    def testWindowOfAToolIsAllowed(self):
        file = {"tools/maker/ui/window.cpp": "#include <QPushButton>\n"}
        self.assertEqual(self.violazioni(house_rules.widget, WIDGET, file=file), [])

    def testFolderWithoutTheHeadersIsAnError(self):
        with self.assertRaises(ValueError):
            house_rules.intestazioniWidget(self.radice)

    def testHeadersAreReadFromTheirFolder(self):
        self.scrivi({"QWidget": "", "QLabel": ""})
        self.assertEqual(house_rules.intestazioniWidget(self.radice), {"QWidget", "QLabel"})


class Lengths(HouseTest):
    def testLongestSourcePasses(self):
        file = {"src/core/long.cpp": "\n" * (house_rules.RIGHE_MASSIME - 1)}
        self.assertEqual(self.violazioni(house_rules.lunghezze, file=file), [])

    def testTooLongASourceIsFound(self):
        file = {"src/core/long.cpp": "\n" * house_rules.RIGHE_MASSIME}
        self.unaSola(house_rules.lunghezze, file=file, dice="src/core/long.cpp: 600 lines")


class CommandLine(HouseTest):
    def esito(self, *argomenti):
        with contextlib.redirect_stdout(io.StringIO()), contextlib.redirect_stderr(io.StringIO()):
            return check_house.main([str(a) for a in argomenti])

    def testHeldRuleAnswersZero(self):
        self.scrivi(PULITO)
        self.assertEqual(self.esito("floors", self.radice), 0)

    def testBreachAnswersOne(self):
        self.scrivi(PULITO | {"src/core/bad.h": '#include "sale/rows.h"\n'})
        self.assertEqual(self.esito("floors", self.radice), 1)

    def testTreeWithoutSourcesIsAnError(self):
        self.assertEqual(self.esito("floors", self.radice), 2)

    def testUnknownRuleIsAnError(self):
        self.assertEqual(self.esito("nothing", self.radice), 2)


if __name__ == "__main__":
    unittest.main()
