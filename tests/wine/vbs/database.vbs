' The database helpers from a script, on a database reached through ODBC
' (the test server's data objects stand in for the caller's own), with
' script classes as the caller's list and grid: the calls a method makes on
' them arrive by name, and the class's name answers the class tests.
Class ComboBox
    ' One member a line: Wine's VBScript compiles no list of them.
    Public Items
    Public Datas
    Public ListIndex
    Public NewIndex
    Public Visible
    Private Sub Class_Initialize()
        Clear
        Visible = True
    End Sub
    Public Sub Clear()
        Items = Array()
        Datas = Array()
        ListIndex = -1
        NewIndex = -1
    End Sub
    Public Sub AddItem(text)
        ReDim Preserve Items(UBound(Items) + 1)
        ReDim Preserve Datas(UBound(Datas) + 1)
        Items(UBound(Items)) = CStr(text)
        Datas(UBound(Datas)) = 0
        NewIndex = UBound(Items)
    End Sub
    Public Property Get ListCount()
        ListCount = UBound(Items) + 1
    End Property
    Public Property Get List(i)
        List = Items(i)
    End Property
    Public Property Get ItemData(i)
        ItemData = Datas(i)
    End Property
    Public Property Let ItemData(i, value)
        Datas(i) = value
    End Property
End Class

Class MSFlexGrid
    Public Rows
    Public Cols
    Public FixedRows
    Public FixedCols
    Public Cells
    Private Sub Class_Initialize()
        Rows = 5
        Cols = 3
        FixedRows = 1
        FixedCols = 0
        ReDim Cells(Rows - 1, Cols - 1)
    End Sub
    Public Property Get TextMatrix(r, c)
        TextMatrix = Cells(r, c) & ""
    End Property
    Public Property Let TextMatrix(r, c, value)
        Cells(r, c) = value
    End Property
End Class

' A data-entry form: its records, its unsaved-edits flag, its own save and
' load, noted so the script can check what the library asked of it.
Class Form
    Public Changed
    Public Lista
    Public Saves
    Public Loaded
    Private Sub Class_Initialize()
        Changed = False
        Saves = 0
        Loaded = ""
    End Sub
    Public Sub GuardaRegistro()
        Saves = Saves + 1
        Changed = False
    End Sub
    Public Sub CargaDatosRegistro(key)
        Loaded = Loaded & "," & key
    End Sub
End Class

' The items joined by commas (Wine's VBScript has no Join).
Function Joined(items)
    Dim i
    Joined = ""
    For i = 0 To UBound(items)
        If i > 0 Then Joined = Joined & ","
        Joined = Joined & items(i)
    Next
End Function

Dim cn, lista, codigos, grid, r, ficha
Set cn = CreateObject("ADODB.Connection")
' A client cursor counts its rows, as the list loaders need.
cn.CursorLocation = 3
cn.Open "Driver={SQLite3};Database=" & TestDatabase & ";"
cn.Execute "CREATE TABLE clientes (codigo INTEGER, nombre TEXT)"
cn.Execute "INSERT INTO clientes VALUES (7, 'Ana'), (12, 'Luis'), (9, 'María')"

Check "regDevuelveDatoCampoSQL", fun.regDevuelveDatoCampoSQL(cn, "SELECT nombre FROM clientes WHERE codigo = 12"), "Luis"
Check "regUltimoCodigo", fun.regUltimoCodigo(cn, "codigo", "clientes", "codigo < 10"), CLng(10)

Set lista = New ComboBox
Set codigos = New ComboBox
fun.regCargaListaSQL cn, "SELECT codigo, nombre FROM clientes ORDER BY nombre", lista, "nombre", codigos, "codigo"
Check "regCargaListaSQL fills the text list", Joined(lista.Items), "Ana,Luis,María"
Check "regCargaListaSQL fills the code list", Joined(codigos.Items), "7,12,9"
Check "regCargaListaSQL selects the first item", lista.ListIndex, 0

Set lista = New ComboBox
fun.regCargaListaSQL2 cn, "SELECT nombre, codigo FROM clientes ORDER BY codigo", lista, "nombre", "codigo"
Check "regCargaListaSQL2 texts", Joined(lista.Items), "Ana,María,Luis"
Check "regCargaListaSQL2 keeps codes as item data", Joined(lista.Datas), "7,9,12"

Set grid = New MSFlexGrid
grid.TextMatrix(1, 1) = "Ana"
grid.TextMatrix(1, 2) = "Luis"
Check "fn_BuscaFilGrid on a script grid", fun.fn_BuscaFilGrid(grid, 1, "Luis"), CLng(2)
Check "fn_BuscaColGrid on a script grid", fun.fn_BuscaColGrid(grid, 1, "Ana"), CLng(1)

' Moving through the records: the boxes are captured, so the save question
' is answered No (the edits are dropped) and the notice at the end closes.
fun.CapturaMsgBox
Set ficha = New Form
Set ficha.Lista = CreateObject("ADODB.Recordset")
ficha.Lista.CursorLocation = 3
ficha.Lista.Open "SELECT codigo, nombre FROM clientes ORDER BY codigo", cn, 3, 1
ficha.Changed = True
fun.RegistroSiguiente ficha
Check "RegistroSiguiente loads the next record", ficha.Loaded, ",9"
Check "RegistroSiguiente: answered No, nothing saved", ficha.Saves, 0
Check "RegistroSiguiente: the edits are dropped", ficha.Changed, False
fun.RegistroFinal ficha
fun.RegistroSiguiente ficha
Check "RegistroSiguiente at the end reloads the last record", ficha.Loaded, ",9,12,12"
ficha.Lista.Close

' Binary fields cross the automation boundary as Byte arrays both ways: the
' field's bytes reach the script, go to regGuardaStream, come back from
' regLeeStream and go out again; the runner compares both files with the
' bytes stored. (Wine's TypeName calls every array "Variant()" and its
' UBound refuses a Byte array: VarType tells the element type.)
Dim rs, adjunto, leidos
cn.Execute "CREATE TABLE adjuntos (datos BLOB)"
cn.Execute "INSERT INTO adjuntos VALUES (X'00FF7F80410D0A1A')"
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT datos FROM adjuntos", cn, 3, 1
adjunto = rs.Fields.Item(0).Value
rs.Close
Check "a binary field is a Byte array", VarType(adjunto), vbArray + vbByte
Check "regGuardaStream writes a Byte array", fun.regGuardaStream(adjunto, "C:\telvaro-tests\adjunto.bin"), "C:\telvaro-tests\adjunto.bin"
leidos = fun.regLeeStream("C:\telvaro-tests\adjunto.bin")
Check "regLeeStream reads a Byte array", VarType(leidos), vbArray + vbByte
Check "regGuardaStream writes it again", fun.regGuardaStream(leidos, "C:\telvaro-tests\adjunto-2.bin"), "C:\telvaro-tests\adjunto-2.bin"

' A database failure reaches the script as the provider's error.
On Error Resume Next
r = fun.regDevuelveDatoCampoSQL(cn, "SELECT nada FROM ninguna")
checks = checks + 1
If Err.Number = 0 Then Fail "a bad statement raises", "no error"
Err.Clear
On Error GoTo 0
cn.Close
Done "database"
