' The exports where no spreadsheet application is installed (Wine has none):
' the embedded spreadsheet writes .xlsx files into Documents\Telvaro\exports.
' A grid filled from the test database and a query are exported; the runner
' reads both files back (EXPORTS in run_wine_tests.py).
Class GridFont
    Public Name
    Public Size
End Class

' A grid as the loader and the export reach it: rows grow and shrink, the
' header row is fixed, each column has its width in twips.
Class MSFlexGrid
    Public Cells
    Public RowCount
    Public Cols
    Public FixedRows
    Public FixedCols
    Public Widths
    Public Letters
    Private Sub Class_Initialize()
        Cols = 3
        FixedRows = 1
        FixedCols = 0
        Widths = Array(1275, 2550, 850)
        Set Letters = New GridFont
        Letters.Name = "Arial"
        Letters.Size = 8
        Resize 1
    End Sub
    ' The cells are held column by column: ReDim Preserve changes only the
    ' last dimension.
    Private Sub Resize(count)
        If IsEmpty(Cells) Then
            ReDim Cells(Cols - 1, count - 1)
        Else
            ReDim Preserve Cells(Cols - 1, count - 1)
        End If
        RowCount = count
    End Sub
    Public Property Get Font(): Set Font = Letters: End Property
    Public Property Get Rows(): Rows = RowCount: End Property
    Public Property Let Rows(value): Resize value: End Property
    Public Sub Clear()
        Dim r, c
        For r = 0 To RowCount - 1
            For c = 0 To Cols - 1
                Cells(c, r) = ""
            Next
        Next
    End Sub
    Public Property Get TextMatrix(r, c): TextMatrix = Cells(c, r) & "": End Property
    Public Property Let TextMatrix(r, c, value): Cells(c, r) = value: End Property
    Public Property Get ColWidth(c): ColWidth = Widths(c): End Property
End Class

Dim cn, tabla
Set cn = OpenTestDatabase()
cn.Execute "CREATE TABLE productos (codigo INTEGER, nombre TEXT, precio REAL)"
cn.Execute "INSERT INTO productos VALUES (7, 'Jabón de avena', 12.5), (12, 'Café molido', 3.25), (30, 'Ñame', 0.75)"

Set tabla = New MSFlexGrid
tabla.TextMatrix(0, 0) = "Código"
tabla.TextMatrix(0, 1) = "Nombre"
tabla.TextMatrix(0, 2) = "Precio"
fun.RegLlenaGridRegSql cn, tabla, "SELECT codigo, nombre, precio FROM productos ORDER BY codigo", "codigo, nombre, precio|N", True, False, 1, 0
Check "RegLlenaGridRegSql: one row a record under the header", tabla.Rows, CLng(4)
Check "RegLlenaGridRegSql: the header row kept, a record a row", tabla.TextMatrix(0, 0) & "," & tabla.TextMatrix(3, 1), "Código,Ñame"

' Both exports end without an error the script sees: each skips what fails,
' so the files themselves are the check (the runner reads them).
On Error Resume Next
fun.fn_ExportaExcelGrid tabla, 0, "Lista de precios", "Productos en bodega"
CheckError "fn_ExportaExcelGrid", 0
fun.ExportExcelReg cn, "Código,Nombre,Precio", "8,25,12", "SELECT codigo, nombre, precio FROM productos ORDER BY codigo", "Productos"
CheckError "ExportExcelReg", 0
On Error GoTo 0
cn.Close
Done "export"
