"""The tables and columns that the statements may name, read from the DDL of the database itself."""

from sqlglot import exp

# Text of a NVARCHAR column and of an index key that SQL Server takes, in bytes.
BYTE_TESTO = 8000
BYTE_INDICE = 1700


# What the server tells of itself, as far as the program asks.
CATALOGO = {
    "COLUMNS": {"TABLE_NAME": "NVARCHAR", "COLUMN_NAME": "NVARCHAR"},
    "DATABASES": {"NAME": "NVARCHAR"},
    "IDENTITY_COLUMNS": {"OBJECT_ID": "INT", "LAST_VALUE": "INT"},
}


class Schema:
    """Names are kept in upper case: the server compares them so."""

    def __init__(self):
        self.tabelle = {
            nome: {colonna: exp.DataType.build(tipo) for colonna, tipo in colonne.items()}
            for nome, colonne in CATALOGO.items()
        }  # table name to its columns, each with its type as sqlglot tells it
        # The statements of the archive tool: they tell the keys of new rows, and their own plain texts.
        self.attrezzo = False
        self.chiavi = {}  # table name to the column that the server numbers

    def crea(self, albero):
        """Takes a CREATE TABLE in."""
        nome = albero.find(exp.Table).name.upper()
        colonne = {c.name.upper(): c.args["kind"] for c in albero.find_all(exp.ColumnDef)}
        self.tabelle[nome] = colonne
        for colonna in albero.find_all(exp.ColumnDef):
            if colonna.find(exp.PrimaryKeyColumnConstraint):
                self.chiavi[nome] = colonna.name.upper()

    def ha(self, tabella, colonna):
        return colonna.upper() in self.tabelle.get(tabella.upper(), {})

    def colonna_di_qualcuna(self, colonna):
        return any(colonna.upper() in colonne for colonne in self.tabelle.values())

    def larghezza(self, tabella, colonna):
        """Bytes of a text column in an index key; a few for every other type."""
        tipo = self.tabelle[tabella.upper()][colonna.upper()]
        if tipo.this == exp.DataType.Type.NVARCHAR:
            return 2 * int(tipo.expressions[0].name)
        return BYTE_TESTO if tipo.this == exp.DataType.Type.TEXT else 16
